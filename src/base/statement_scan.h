#pragma once
// Where in a statement one is: outside everything, in a text, in a comment. It
// reads as the server does.

#include <QString>

class StatementScan {
public:
    enum Place {
        Outside,
        InText,        ///< '...'
        InEscapedText, ///< E'...': a backslash means something
        InName,        ///< "..."
        InDollarText,  ///< $tag$...$tag$
        InLineComment,
        InBlockComment,
    };

    /// Reads the next character.
    void take(QChar c);
    void take(const QString& text);

    /// Where a value would stand that comes next.
    Place place() const;
    /// A text or name has just ended: a quote that follows would continue it.
    bool isBehindQuote() const { return ending_; }
    bool isBehind(QChar c) const { return last_ == c; }

private:
    void takeOutside(QChar c);
    void takeDollar(QChar c);
    void openQuote(QChar c);

    Place place_ = Outside;
    bool ending_ = false; ///< the last character was a quote that ends the text unless it is doubled
    bool skips_ = false;  ///< the character before was a backslash with a meaning
    int depth_ = 0;       ///< of block comments
    QChar last_;
    QChar beforeLast_;
    QString tag_;     ///< the dollar quote in force, both signs included
    QString newTag_;  ///< a dollar quote that may be about to open
    QString pending_; ///< the last characters of a dollar text
};
