#include "FileChanges.h"

namespace vanoka {

namespace {

namespace fs = std::filesystem;

QString qtPath(const fs::path& path) {
    return QString::fromStdString(path.string());
}

/// The folder that the file is in, or the nearest one above that exists.
fs::path folderAbove(const fs::path& file) {
    std::error_code ignored;
    fs::path folder = file.parent_path();
    while (folder.has_relative_path() && !fs::is_directory(folder, ignored))
        folder = folder.parent_path();
    return folder;
}

} // namespace

FileChanges::FileChanges(fs::path path) : path_(std::move(path)), file_(path_) {
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &FileChanges::look);
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, &FileChanges::look);
    follow();
}

/// Watches anew: a file that has been replaced is another one to the system, and a folder may be there by
/// now. One that is made after the look for it, and before the one above is watched, nobody would tell of.
void FileChanges::follow() {
    if (const QStringList before = watcher_.files() + watcher_.directories(); !before.isEmpty())
        watcher_.removePaths(before);
    if (!path_.is_absolute())
        return; // nothing is stored
    fs::path folder;
    do {
        folder = folderAbove(path_);
        watcher_.addPath(qtPath(folder));
    } while (folder != folderAbove(path_));
    std::error_code ignored;
    if (fs::exists(path_, ignored))
        watcher_.addPath(qtPath(path_));
}

/// Others may change files in the same folder.
void FileChanges::look() {
    follow();
    if (file_.hasChanged())
        emit changed();
}

} // namespace vanoka
