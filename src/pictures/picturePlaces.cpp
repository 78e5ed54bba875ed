#include "pictures/picturePlaces.h"

#include <QDir>
#include <QStandardPaths>
#include <QStorageInfo>

using namespace Qt::StringLiterals;

namespace {

/// Not what the system mounts for itself.
bool isOfUse(const QStorageInfo &volume)
{
    const QString root = volume.rootPath();
    if (!volume.isValid() || !volume.isReady() || volume.isRoot() || root == QDir::homePath())
        return false;
    const bool isRemote = volume.fileSystemType().startsWith("nfs") || volume.fileSystemType() == "cifs"
        || volume.fileSystemType().startsWith("fuse.");
    const bool isSystem = root.startsWith(u"/boot"_s) || root.startsWith(u"/snap"_s) || root.startsWith(u"/etc/"_s)
        || volume.device().startsWith("/dev/loop");
    return QFileInfo(root).isDir() && !isSystem && (isRemote || volume.device().startsWith("/dev/"));
}

} // namespace

std::vector<PicturePlace> picturePlaces()
{
    std::vector<PicturePlace> places{{u"Home"_s, QDir::homePath()}};
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    if (QFileInfo(pictures).isDir() && pictures != QDir::homePath())
        places.push_back({u"Pictures"_s, pictures});
    places.push_back({u"Computer"_s, QDir::rootPath()});
    const auto volumes = QStorageInfo::mountedVolumes();
    for (const QStorageInfo &volume : volumes) {
        if (isOfUse(volume))
            places.push_back({volume.displayName(), volume.rootPath()});
    }
    return places;
}
