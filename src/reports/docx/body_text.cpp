#include "reports/docx/body_text.h"

#include "reports/docx/indented_text.h"

#include <QDebug>
#include <QSet>
#include <utility>

namespace docx {
namespace {

constexpr int childOfRoot = 1;
constexpr int childOfBody = 2;

QByteArray bodyName() { return QByteArrayLiteral("w:body"); }

bool refersToNoteOrComment(const QByteArray& name)
{
    static const QSet<QByteArray> names{"w:footnoteReference", "w:endnoteReference", "w:commentReference",
                                        "w:commentRangeStart", "w:commentRangeEnd"};
    return names.contains(name);
}

/// What must go as a whole when a reference in it leads nowhere; elsewhere
/// losing the attribute is enough.
bool holdsReferences(const QByteArray& name)
{
    static const QSet<QByteArray> names{"w:drawing",  "w:pict",   "w:object",          "w:control",
                                        "w:altChunk", "w:subDoc", "w:headerReference", "w:footerReference"};
    return names.contains(name);
}

/// The children of a body, up to its end tag.
class BodyReader {
public:
    BodyReader(MarkupReader* reader, const BodyChanges* changes) : reader_(*reader), changes_(changes) { }

    BodyText run()
    {
        while (reader_.next()) {
            if (reader_.kind() == MarkupReader::End) {
                if (depth_ == childOfBody)
                    break;
                close();
            } else if (reader_.opens()) {
                open();
            } else if (!isSkipping()) {
                text_.add(reader_.kind(), reader_.raw(), depth_);
            }
        }
        return parts();
    }

private:
    struct Holder {
        int depth;
        IndentedText::Mark mark;
    };

    bool isSkipping() const { return skippedDepth_ >= 0; }

    void open()
    {
        const bool holdsMore = reader_.kind() == MarkupReader::Start;
        if (!isSkipping())
            take(reader_.name(), holdsMore);
        if (holdsMore)
            ++depth_;
    }

    void take(const QByteArray& name, bool holdsMore)
    {
        if (changes_ && refersToNoteOrComment(name)) {
            skippedDepth_ = holdsMore ? depth_ : -1;
            return;
        }
        const bool holder = holdsReferences(name);
        if (holder)
            holders_.append({depth_, text_.mark()});
        const QByteArray tag = changes_ ? changedTag(name) : reader_.raw();
        if (leadsNowhere_ && !holders_.isEmpty()) {
            const Holder gone = holders_.takeLast();
            text_.goBack(gone.mark);
            // Of an element without content nothing follows.
            skippedDepth_ = holdsMore || gone.depth < depth_ ? gone.depth : -1;
            return;
        }
        const bool section = depth_ == childOfBody && name == "w:sectPr";
        if (section && changes_)
            text_.remove(sectionFrom_, sectionTo_ - sectionFrom_); // one of a body counts
        text_.add(reader_.kind(), tag, depth_);
        if (section)
            sectionFrom_ = text_.size() - tag.size();
        if (!holdsMore)
            leave(holder, section);
    }

    void close()
    {
        --depth_;
        if (isSkipping()) {
            if (depth_ == skippedDepth_)
                skippedDepth_ = -1;
            return;
        }
        text_.add(MarkupReader::End, reader_.raw(), depth_);
        leave(!holders_.isEmpty() && holders_.last().depth == depth_,
              depth_ == childOfBody && reader_.name() == "w:sectPr");
    }

    void leave(bool holder, bool section)
    {
        if (holder)
            holders_.removeLast();
        if (section)
            sectionTo_ = text_.size();
    }

    /// Sets leadsNowhere_ where a reference was dropped.
    QByteArray changedTag(const QByteArray& name)
    {
        leadsNowhere_ = false;
        const bool drawing = name.endsWith(":docPr");
        const bool declares = depth_ == childOfBody && !changes_->namespaces.isEmpty();
        if (!drawing && !declares && !reader_.raw().contains("r:"))
            return reader_.raw();
        QVector<MarkupAttribute> attributes = reader_.attributes();
        if (drawing)
            set({"id", '"' + QByteArray::number(changes_->newDrawingId()) + '"'}, &attributes);
        for (const MarkupAttribute& declaration : declares ? changes_->namespaces : QVector<MarkupAttribute>()) {
            if (!contains(attributes, declaration.name))
                attributes.append(declaration);
        }
        QByteArray tag = '<' + name;
        for (const MarkupAttribute& attribute : attributes)
            tag += attribute.name.startsWith("r:") ? changedReference(attribute, name) : attribute.written();
        return tag + (reader_.kind() == MarkupReader::Empty ? "/>" : ">");
    }

    QByteArray changedReference(const MarkupAttribute& attribute, const QByteArray& name)
    {
        const QString old = attribute.value();
        const auto found = changes_->relationships.constFind(old);
        if (found != changes_->relationships.constEnd())
            return MarkupAttribute{attribute.name, '"' + found->toUtf8() + '"'}.written();
        if (old.isEmpty())
            return attribute.written();
        qDebug() << "DocxMerger: Left out a reference to" << old << "of" << QString::fromUtf8(name);
        leadsNowhere_ = true;
        return QByteArray();
    }

    BodyText parts() const
    {
        // Blanks in front of the end of the body tell nothing.
        QByteArray text = text_.text();
        while (!text.isEmpty() && isBlank(text.back()))
            text.chop(1);
        BodyText parts{text.left(sectionFrom_), text.mid(sectionFrom_, sectionTo_ - sectionFrom_),
                       text.mid(sectionTo_)};
        if (parts.section.isEmpty())
            return {text, {}, {}};
        if (changes_) // here it goes last
            parts.before += std::exchange(parts.behind, {});
        return parts;
    }

    MarkupReader& reader_;
    const BodyChanges* changes_;
    IndentedText text_;
    QVector<Holder> holders_;
    int depth_ = childOfBody;
    int skippedDepth_ = -1;
    int sectionFrom_ = 0;
    int sectionTo_ = 0;
    bool leadsNowhere_ = false;
};

} // namespace

bool DocumentText::readHead()
{
    IndentedText prolog(false);
    while (reader_.next() && !reader_.opens()) {
        if (reader_.kind() != MarkupReader::Text) // line ends around the root
            prolog.add(reader_.kind(), reader_.raw(), 0);
    }
    around_.prolog = prolog.text();
    if (!reader_.opens() || reader_.kind() == MarkupReader::Empty)
        return false;
    around_.rootName = QByteArray(reader_.name().constData(), reader_.name().size());
    around_.rootAttributes = reader_.attributes();

    IndentedText before;
    for (int depth = childOfRoot; reader_.next() && depth >= childOfRoot;) {
        const bool ends = reader_.kind() == MarkupReader::End;
        depth -= ends ? 1 : 0;
        const bool body = depth == childOfRoot && reader_.opens() && reader_.name() == bodyName();
        before.add(reader_.kind(), reader_.raw(), depth);
        if (body) {
            around_.beforeBody = before.text();
            emptyBody_ = reader_.kind() == MarkupReader::Empty;
            if (emptyBody_)
                around_.beforeBody.replace(around_.beforeBody.size() - 2, 2, ">");
            return true;
        }
        depth += reader_.kind() == MarkupReader::Start ? 1 : 0;
    }
    return false;
}

BodyText DocumentText::readBody(const BodyChanges& changes)
{
    return emptyBody_ ? BodyText() : BodyReader(&reader_, &changes).run();
}

BodyText DocumentText::readBody() { return emptyBody_ ? BodyText() : BodyReader(&reader_, nullptr).run(); }

void DocumentText::readTail()
{
    IndentedText tail;
    tail.add(MarkupReader::End, "</" + bodyName() + '>', childOfRoot);
    for (int depth = childOfRoot; reader_.next();) {
        depth -= reader_.kind() == MarkupReader::End ? 1 : 0;
        if (depth >= childOfRoot || reader_.kind() != MarkupReader::Text)
            tail.add(reader_.kind(), reader_.raw(), qMax(0, depth));
        depth += reader_.kind() == MarkupReader::Start ? 1 : 0;
    }
    around_.tail = tail.text() + '\n';
}

} // namespace docx
