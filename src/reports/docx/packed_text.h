#pragma once
// Text that waits in memory to be written: markup packs to a twentieth.

#include <QByteArray>
#include <QVector>
#include <functional>

namespace docx {

class PackedText {
public:
    void append(const QByteArray& text);

    /// Hands the text over piece by piece until `take` gives false.
    bool give(const std::function<bool(const char*, qint64)>& take) const;

private:
    QVector<QByteArray> pieces_;
};

} // namespace docx
