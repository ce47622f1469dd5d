#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// What people are told of the file in which learnt words are kept.
namespace vanoka::WordMessages {

std::string unread(const std::filesystem::path& path, std::string_view reason);
std::string unstored(const std::filesystem::path& path, std::string_view reason);
std::string unforced(const std::filesystem::path& path, std::string_view reason);
std::string setAside(const std::filesystem::path& path);

/// What is wrong with the file at `path`, and which damaged ones lie beside it, a sentence each. Makes no
/// file where there is none.
std::vector<std::string> problemsOf(const std::filesystem::path& path);

} // namespace vanoka::WordMessages
