#include "tolvo_bible/folder_name.h"

#include "cp1251.h"

#include <QDir>
#include <QFile>

namespace Kedrin::Tolvo {

std::string folder_name(const std::string& folderPath)
{
    const QString path = QDir::cleanPath(QFile::decodeName(folderPath.c_str()));
    return ut::to_cp1251(QDir(path).dirName().toStdU16String());
}

std::vector<std::string> sub_folders(const std::string& folderPath)
{
    QDir folder(QFile::decodeName(folderPath.c_str()), QString(), QDir::Name | QDir::IgnoreCase);
    folder.setFilter(QDir::Dirs);
    std::vector<std::string> names;
    for (const QString& name : folder.entryList())
        if (!name.startsWith(u'.'))
            names.push_back(QFile::encodeName(name).toStdString());
    return names;
}

} // namespace Kedrin::Tolvo
