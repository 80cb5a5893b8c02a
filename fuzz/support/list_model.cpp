#include "fuzz/support/list_model.h"

namespace lookfar::fuzz {

std::vector<std::string> lines_of(std::string_view content) {
    std::vector<std::string> lines;
    while (!content.empty()) {
        const std::string_view line = content.substr(0, content.find('\r'));
        lines.emplace_back(line);
        content.remove_prefix(line.size());
        if (content.starts_with('\r'))
            content.remove_prefix(content.starts_with("\r\n") ? 2 : 1);
    }
    return lines;
}

std::string list_of(const std::vector<std::string>& lines) {
    std::string list;
    for (const std::string& line : lines)
        list += line + "\r\n";
    return list;
}

std::vector<std::string> titles_of(const std::vector<std::string>& lines) {
    std::vector<std::string> titles;
    for (std::size_t index = 0; index + 1 < lines.size(); ++index)
        if (!lines[index].empty())
            titles.push_back(lines[index++]);
    return titles;
}

bool ends_at_title(const std::vector<std::string>& lines) {
    bool is_title = false;
    for (const std::string& line : lines)
        is_title = !is_title && !line.empty();
    return is_title;
}

} // namespace lookfar::fuzz
