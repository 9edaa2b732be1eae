// Takes the lines of a survey file one by one and says what each of them is.
#pragma once

#include "exchange/import_template.h"

#include <QDateTime>
#include <QHash>
#include <limits>

/// What a row of a file says.
struct SurveyRow {
    QString name;
    QString serial;
    QDateTime when; ///< as written; null where no format fits
    double value = std::numeric_limits<double>::infinity();
    double second = std::numeric_limits<double>::infinity();
    TemperatureProfile profile;
    QVector<ReadingLoss> losses; ///< numbers that lost a part
};

class RowReader {
public:
    enum class Line {
        Passed, ///< before the first header, too short, or without a name
        Header,
        Data,
    };

    RowReader(const ImportTemplate& format, const QString& separator);

    /// `row` is filled for Line::Data. The last header rules the lines below it.
    Line read(const QString& line, SurveyRow& row);

private:
    bool isHeader(const QStringList& cells) const;
    bool hasCaption(const QStringList& cells, const TemplateField& field) const;
    QDateTime dateTimeOf(const QStringList& cells);
    double valueOf(const QString& cell, LossIn place, QVector<ReadingLoss>& losses) const;
    void readProfile(const QString& line, SurveyRow& row) const;

    ImportTemplate format_;
    QString separator_;
    bool headerSeen_ = false;
    ProfileReader profile_;
    // A logger repeats its dates and times thousands of times over.
    QHash<QString, QDate> dates_;
    QHash<QString, QTime> times_;
};
