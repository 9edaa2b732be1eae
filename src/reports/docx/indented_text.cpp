#include "reports/docx/indented_text.h"

namespace docx {

void IndentedText::add(MarkupReader::Kind kind, const QByteArray& raw, int depth)
{
    if (kind == MarkupReader::End && at_.behindStart) {
        text_.chop(1);
        text_ += "/>"; // an element that holds nothing
    } else {
        if (kind != MarkupReader::Text && at_.behindTag)
            text_.append('\n').append(QByteArray(depth, ' '));
        text_ += raw;
    }
    at_.behindTag = kind != MarkupReader::Text;
    at_.behindStart = kind == MarkupReader::Start;
}

IndentedText::Mark IndentedText::mark() const
{
    Mark mark = at_;
    mark.size = text_.size();
    return mark;
}

void IndentedText::goBack(const Mark& mark)
{
    text_.truncate(mark.size);
    at_ = mark;
}

} // namespace docx
