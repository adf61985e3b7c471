#include "core/pc_folders.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/byte_helpers.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

void SortNames(std::vector<std::string>& names) {
    std::sort(names.begin(), names.end(), [](const std::string& left, const std::string& right) {
        const std::string a = LowerCase(left);
        const std::string b = LowerCase(right);
        return a != b ? a < b : left < right;
    });
}

/// The names in a folder that `wanted` takes. A folder that cannot be read has none.
template <typename Wanted>
std::vector<std::string> NamesIn(const std::string& folder, Wanted wanted) {
    std::vector<std::string> names;
    std::error_code error;
    fs::directory_iterator entry(folder, fs::directory_options::skip_permission_denied, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.front() != '.' && wanted(*entry, name)) names.push_back(name);
    }
    SortNames(names);
    return names;
}

/// Opening a pipe, a socket or a terminal would wait for bytes without end.
bool IsListedFile(const fs::directory_entry& entry) {
    std::error_code error;
    switch (entry.status(error).type()) {
        case fs::file_type::directory:
        case fs::file_type::fifo:
        case fs::file_type::socket:
        case fs::file_type::character:
            return false;
        default:
            return true;
    }
}

}  // namespace

bool MatchesPattern(const std::string& name, const std::string& pattern) {
    if (pattern == "*.*") return true;
    const std::string text = LowerCase(name);
    const std::string wanted = LowerCase(pattern);
    std::size_t place = 0;
    std::size_t next = 0;
    std::size_t star = std::string::npos;  // the last "*" met, and where the text stood then
    std::size_t retry = 0;
    while (place < text.size()) {
        if (next < wanted.size() && wanted[next] == '*') {
            star = next++;
            retry = place;
        } else if (next < wanted.size() && (wanted[next] == '?' || wanted[next] == text[place])) {
            ++next;
            ++place;
        } else if (star != std::string::npos) {
            next = star + 1;
            place = ++retry;
        } else {
            return false;
        }
    }
    while (next < wanted.size() && wanted[next] == '*') ++next;
    return next == wanted.size() && !wanted.empty();
}

std::vector<std::string> FoldersIn(const std::string& folder) {
    return NamesIn(folder, [](const fs::directory_entry& entry, const std::string&) {
        std::error_code error;
        return entry.is_directory(error);
    });
}

bool MatchesOnePattern(const std::string& name, const std::string& patterns) {
    const std::vector<std::string> list = SplitText(patterns, ";");
    return std::any_of(list.begin(), list.end(), [&name](const std::string& pattern) {
        return MatchesPattern(name, Trim(pattern));
    });
}

std::vector<std::string> FilesIn(const std::string& folder, const std::string& patterns) {
    return NamesIn(folder, [&patterns](const fs::directory_entry& entry, const std::string& name) {
        return MatchesOnePattern(name, patterns) && IsListedFile(entry);
    });
}

bool FolderExists(const std::string& folder) {
    std::error_code error;
    return fs::is_directory(folder, error);
}

bool FileExists(const std::string& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return fs::exists(status) && !fs::is_directory(status);
}

std::string WholeFolderPath(const std::string& folder) {
    fs::path path = folder.empty() ? fs::path("/") : fs::path(folder);
    if (path == path.root_name()) path += PathSeparator();  // a drive's letter is its root
    std::error_code error;
    const fs::path whole = fs::absolute(path, error);
    if (error) return folder;
    std::string text = whole.lexically_normal().string();
    const std::size_t root = whole.root_path().string().size();
    while (text.size() > root && text.back() == PathSeparator()) text.pop_back();
    return text;
}

std::vector<std::string> FoldersAbove(const std::string& folder) {
    std::vector<std::string> folders;
    fs::path path;
    for (const fs::path& part : fs::path(folder)) {
        if (part.empty()) continue;
        path /= part;
        folders.push_back(path.string());
    }
    // A drive's name and its root are one step: "C:" and "C:\".
    if (fs::path(folder).has_root_name() && folders.size() > 1) folders.erase(folders.begin());
    return folders;
}

}  // namespace brindlemoor
