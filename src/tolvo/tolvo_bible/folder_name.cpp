#include "tolvo_bible/folder_name.h"

#include "cp1251.h"

#include <QDir>
#include <QStringDecoder>

#include <algorithm>
#include <filesystem>

namespace Kedrin::Tolvo {

namespace {

/// UTF-8; each byte that is not valid UTF-8 is decoded as Windows-1251.
QString decoded(const std::string& native)
{
    QStringDecoder utf8(QStringConverter::Utf8, // a byte order mark is a character of the name
                        QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom);
    const QString text = utf8.decode(native.c_str());
    if (!text.contains(QChar::ReplacementCharacter))
        return text;
    QString legible;
    for (std::size_t at = 0; at < native.size();) {
        std::size_t length = std::min<std::size_t>(4, native.size() - at);
        QString character;
        for (; length > 0; --length) {
            QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
            character = decoder.decode(QByteArrayView(native.data() + at, static_cast<qsizetype>(length)));
            if (!decoder.hasError() && character.size() > 0)
                break;
        }
        legible += length > 0 ? character : QString(QChar(ut::from_cp1251(native[at])));
        at += std::max<std::size_t>(length, 1);
    }
    return legible;
}

} // namespace

std::string folder_name(const std::string& folderPath)
{
    std::string name = folderPath.substr(folderPath.rfind('/') + 1);
    if (name.empty() || name == "." || name == "..") {
        const QString path =
            QDir::cleanPath(QString::fromLatin1(folderPath.c_str())); // one character per byte
        name = QDir(path).dirName().toLatin1().toStdString();
    }
    return ut::to_cp1251(decoded(name).toStdU16String());
}

std::vector<std::string> sub_folders(const std::string& folderPath)
{
    std::vector<std::pair<QString, std::string>> folders; // case-folded name, and the name itself
    std::error_code error;
    for (std::filesystem::directory_iterator it(folderPath, error), end; !error && it != end;
         it.increment(error)) {
        const std::string& path = it->path().native();
        std::string name = path.substr(path.rfind('/') + 1);
        std::error_code unknown;
        if (!name.starts_with('.') && it->is_directory(unknown))
            folders.emplace_back(decoded(name).toLower(), std::move(name));
    }
    std::sort(folders.begin(), folders.end());
    std::vector<std::string> names;
    names.reserve(folders.size());
    for (auto& folder : folders)
        names.push_back(std::move(folder.second));
    return names;
}

} // namespace Kedrin::Tolvo
