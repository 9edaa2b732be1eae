// One line of text with subscripts and superscripts: "_{...}" and "^{...}", or
// "_" and "^" before a single character. A sign without anything behind it, or
// with a brace that is never closed, stands for itself, and so does one behind
// a backslash.
#pragma once

#include <QFont>
#include <QPointF>
#include <QSizeF>
#include <QString>
#include <QVector>

class QPainter;

class MarkupText {
public:
    /// A stretch of text and its level: 0 on the line, -1 below, +1 above;
    /// nested ones count further.
    struct Run {
        QString text;
        int level;
    };

    MarkupText() = default;
    MarkupText(const QString& markup, const QFont& font);

    const QVector<Run>& runs() const { return runs_; }
    /// The text without its signs.
    QString plainText() const;
    QSizeF size() const { return size_; }
    /// Draws the text into the box of size() at the corner.
    void draw(QPainter& painter, const QPointF& topLeft) const;

private:
    void split(const QString& markup, int level);
    void append(const QString& text, int level);
    QFont fontOf(int level) const;
    double dropOf(int level) const;

    QFont font_;
    QVector<Run> runs_;
    QSizeF size_;
    double ascent_ = 0.0;
};
