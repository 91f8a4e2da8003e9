#include "text.h"

#include "cp1251.h"

#include <QStringDecoder>

#include <algorithm>
#include <cstring>

namespace qt3 {

QString from1251(std::string_view bytes)
{
    const std::u16string units = ut::from_cp1251(bytes.substr(0, bytes.find('\0')));
    return QString::fromUtf16(units.data(), qsizetype(units.size()));
}

std::string to1251(const QString& text)
{
    const std::u16string units = text.toStdU16String();
    std::string bytes = ut::to_cp1251(units);
    std::replace(bytes.begin(), bytes.end(), '\0', '?');
    return bytes;
}

QString fromMessage(const char* what)
{
    if (!what)
        return {};
    const QByteArrayView bytes(what, qsizetype(std::strlen(what)));
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? from1251(what) : text;
}

} // namespace qt3
