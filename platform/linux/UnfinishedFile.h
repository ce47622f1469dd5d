#pragma once

#include "Descriptor.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace vanoka {

/// A file that is written beside the one whose place it takes when it is whole, and that is removed with this
/// object when it is not. Its writer keeps it locked: one that nobody has locked belongs to a writer that was
/// killed.
class UnfinishedFile {
public:
    /// Removes what killed writers of `target` have left beside it.
    static void removeAbandoned(const std::filesystem::path& target);

    /// Makes an empty one for `target`, readable by its owner only.
    explicit UnfinishedFile(std::filesystem::path target);
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    ~UnfinishedFile();

    /// Writes these bytes, forces them to the disk and puts the file in the place of its target.
    std::error_code finish(std::string_view bytes);

private:
    bool make();

    std::filesystem::path target_;
    std::string path_; ///< empty when there is no file
    Descriptor file_;
    std::error_code error_; ///< why none could be made
};

} // namespace vanoka
