#pragma once

#include "FileWatch.h"

#include <QFileSystemWatcher>
#include <QObject>

#include <filesystem>

namespace vanoka {

/// Announces that the file at a path has been replaced, written, made or removed, for as long as it lives:
/// also the file behind a link, and one whose folder is not there yet.
class FileChanges : public QObject {
    Q_OBJECT

public:
    explicit FileChanges(std::filesystem::path path);

signals:
    void changed();

private:
    void follow();
    void look();

    std::filesystem::path path_;
    FileWatch file_;
    QFileSystemWatcher watcher_;
};

} // namespace vanoka
