#pragma once
// Several Word files joined into one.

#include <QString>
#include <QStringList>

/// Appends the bodies of all files to the first, each on a new page, with the
/// pictures, headers, footers and links they point at. Styles and numbering are
/// those of the first file; charts of the body, notes and comments of later
/// files are left out.
class DocxMerger {
public:
    explicit DocxMerger(const QStringList& inputs);

    /// Writes the result beside `outputPath` and moves it there. A single input
    /// is copied as it is. A later input that does not open is skipped. False,
    /// with the reason in the debug log and nothing written, for no inputs, a
    /// first input that does not open, an output that exists and may not be
    /// overwritten, and an output that is the first input.
    bool merge(const QString& outputPath, bool overwrite);

private:
    bool mergeAll(const QString& outputPath) const;

    QStringList inputs_;
};
