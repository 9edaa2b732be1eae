// What the two questions of the exchange of inspections have in common: a cycle
// and a file.
#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;

struct BulkExchangeTexts {
    QString name; ///< object name
    QString title;
    QString cycle;
    QString path;
    QString apply; ///< of the button that begins
};

class BulkExchangeDialog : public QDialog {
    Q_OBJECT

public:
    int cycleId() const; ///< -1 when none is chosen
    QString path() const;

    void accept() override; ///< not without a file

protected:
    /// `more` stands above the buttons; may be null.
    BulkExchangeDialog(const BulkExchangeTexts& texts, QWidget* more, QWidget* parent);

    QComboBox* cycles() { return cycles_; }
    void setPath(const QString& path);
    /// Asks for the file; empty when the user left the question.
    virtual QString askPath() = 0;

private:
    void browse();

    QComboBox* cycles_;
    QLineEdit* path_;
};
