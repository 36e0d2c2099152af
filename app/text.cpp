#include "app/text.h"

#include "rom/file_io.h"

#include <QStringDecoder>

namespace velko {

QString toQString(std::string_view bytes)
{
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(view);
    return decoder.hasError() ? QString::fromLatin1(view) : text;
}

QString pathText(const std::filesystem::path& path)
{
    return toQString(utf8FromPath(path));
}

std::filesystem::path toPath(const QString& text)
{
    return pathFromUtf8(text.toStdString());
}

QString titleText(std::string_view bytes)
{
    return toQString(bytes).replace("[*]", "[*][*]"); // doubled, it stands for itself
}

} // namespace velko
