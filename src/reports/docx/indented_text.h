#pragma once
// Markup that is written piece by piece, indented by one a level as a printed
// tree is: a line of its own for each tag that stands beside no text.

#include "reports/docx/markup_reader.h"

namespace docx {

class IndentedText {
public:
    /// A place to go back to.
    struct Mark {
        int size = 0;
        bool behindTag = true;
        bool behindStart = false;
    };

    /// `inElement` tells whether the text begins behind a tag.
    explicit IndentedText(bool behindTag = true) { at_.behindTag = behindTag; }

    /// A tag at its depth, 0 for the root, or what is neither tag nor text.
    void add(MarkupReader::Kind kind, const QByteArray& raw, int depth);

    Mark mark() const;
    void goBack(const Mark& mark);
    int size() const { return text_.size(); }
    void remove(int from, int length) { text_.remove(from, length); }
    const QByteArray& text() const { return text_; }

private:
    QByteArray text_;
    Mark at_;
};

} // namespace docx
