// Reading whole files and finding the checked-in ones, for every test folder.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

// The file's bytes; empty when it cannot be read.
std::string readFile(const std::filesystem::path& path);

// Splits text at "\n"; a missing final line end leaves the last piece in too.
std::vector<std::string> splitLines(const std::string& text);

// A path in the source tree: the tests run with RZ_SOURCE_DIR set to it, or
// from inside it.
std::filesystem::path sourcePath(const std::string& relative);
