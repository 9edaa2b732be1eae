#pragma once
// A chart over many measures of a thermal well, with the list of those that
// count and a picture for reports. What is drawn is an heir's.

#include "elements/passports/forms/passport_page.h"
#include "elements/passports/well_history.h"

class ChartLabel;
class MeasureTicks;
class QBoxLayout;
class QDoubleSpinBox;
class QLabel;

class HistoryPage : public PassportPage {
    Q_OBJECT

public:
    void showRecord() override;
    void showMeasures() override;

protected:
    /// A number in the list's column changes what is drawn.
    struct Words {
        const char* suffix;  ///< of the name of a saved picture
        const char* nothing; ///< shown in the place of a picture
        const char* number;  ///< caption of the field below the list
    };
    HistoryPage(const Words& words, QDoubleSpinBox* number, PassportRecord& record, QWidget* parent);

    /// The chart of these logs. What it found out goes into the text below it.
    virtual QPixmap render(const DatedLogs& logs, const QSize& size, double ratio, QString& told) const = 0;

    double number() const;

private:
    DatedLogs logs() const;

    Words words_;
    QDoubleSpinBox* number_;
    ChartLabel* chart_;
    MeasureTicks* ticks_;
    QLabel* told_;
};

/// The trumpet: the coldest, mean and warmest temperature by depth.
class EnvelopePage : public HistoryPage {
    Q_OBJECT

public:
    explicit EnvelopePage(PassportRecord& record, QWidget* parent = nullptr);

protected:
    QPixmap render(const DatedLogs& logs, const QSize& size, double ratio, QString& told) const override;
};

/// Temperatures over time and depth.
class IsothermsPage : public HistoryPage {
    Q_OBJECT

public:
    explicit IsothermsPage(PassportRecord& record, QWidget* parent = nullptr);

protected:
    QPixmap render(const DatedLogs& logs, const QSize& size, double ratio, QString& told) const override;
};
