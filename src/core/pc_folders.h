#pragma once

#include <string>
#include <vector>

namespace brindlemoor {

/// The names of the folders in `folder`, by name without regard to case. Hidden ones, and all of a
/// folder that cannot be read, are left out.
std::vector<std::string> FoldersIn(const std::string& folder);

/// The names of the files in `folder` that match one of `patterns` (separated by ";"), by name
/// without regard to case. Hidden ones, all of a folder that cannot be read, and what is no file
/// that ends (pipes, sockets, terminals) are left out.
std::vector<std::string> FilesIn(const std::string& folder, const std::string& patterns);

/// True when `name` matches `pattern`, where "*" stands for any characters, "?" for one, and case
/// does not matter. "*.*" matches every name; an empty pattern none.
bool MatchesPattern(const std::string& name, const std::string& pattern);

/// The same for several patterns, separated by ";" and perhaps blanks: true when one matches.
bool MatchesOnePattern(const std::string& name, const std::string& patterns);

/// True when `folder` is a folder that exists.
bool FolderExists(const std::string& folder);

/// True when `path` leads to a file, and not to a folder.
bool FileExists(const std::string& path);

/// `folder` as a path from the root on, without "." and ".." parts and without a separator at its
/// end, unless it is a root. An empty text stands for the root.
std::string WholeFolderPath(const std::string& folder);

/// The folders from the root down to `folder`, itself included: "/", "/home", "/home/ann".
std::vector<std::string> FoldersAbove(const std::string& folder);

}  // namespace brindlemoor
