#pragma once
// The entries of the audit log that the viewer shows. There may be millions,
// most of their bulk the rows as JSON: texts that repeat are kept once, all
// others in a temporary file that goes with this object. In memory an entry
// takes 32 bytes.

#include <QByteArray>
#include <QFile>
#include <QHash>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>
#include <array>

class AuditEntries {
public:
    enum Column { Table, Operation, User, Time, OldData, NewData, ColumnCount };
    using Texts = std::array<QByteArray, ColumnCount>; ///< UTF-8

    void add(const Texts& texts);
    /// No entry is added behind this. False when the texts could not be kept:
    /// the disk is full, or there is no place for temporary files.
    bool finish();

    int count() const { return rows_.size(); }
    /// The texts can be read once all are there.
    QString text(int row, Column column) const;
    /// Of Table, Operation and User: equal texts have one number, from 0 on.
    int number(int row, Column column) const { return rows_[row].known[size_t(column)]; }
    QString textOfNumber(int number) const { return known_[number]; }
    /// Negative, zero, positive: how the texts of two rows stand to each other.
    int compare(Column column, int row, int other) const;

private:
    static constexpr int kRepeating = 3; ///< columns whose texts repeat come first

    struct Row {
        std::array<int, kRepeating> known;
        std::array<int, ColumnCount - kRepeating> lengths;
        qint64 offset; ///< of the first of the other texts; they lie side by side
    };
    int numberOf(const QByteArray& text);
    QByteArray bytes(int row, Column column) const; ///< not a copy

    QVector<Row> rows_;
    QStringList known_;
    QHash<QByteArray, int> numbers_;
    QTemporaryDir folder_; ///< of the file, whose size finish() looks at
    QFile file_{folder_.filePath(QStringLiteral("texts"))};
    qint64 written_ = 0;
    bool good_ = true;
    const char* texts_ = nullptr; ///< the file as memory
};
