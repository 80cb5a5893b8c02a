#include "support/list_model.h"

#include <iterator>

namespace lookfar::testing {

std::string random_list(std::mt19937& random) {
    static const char* const texts[] = {"", "", "a", "a", "A", "b", "new", "a\nb"};
    static const char* const ends[] = {"\r\n", "\r\n", "\r\n", "\r"};
    std::string list;
    for (auto lines = random() % 8; lines > 0; --lines) {
        list += texts[random() % std::size(texts)];
        if (lines > 1 || random() % 3 > 0)
            list += ends[random() % std::size(ends)];
    }
    return list;
}

Lines lines_of(std::string_view content) {
    Lines lines;
    while (!content.empty()) {
        const std::string_view line = content.substr(0, content.find('\r'));
        lines.emplace_back(line);
        content.remove_prefix(line.size());
        if (content.starts_with('\r'))
            content.remove_prefix(content.starts_with("\r\n") ? 2 : 1);
    }
    return lines;
}

std::string list_of(const Lines& lines) {
    std::string list;
    for (const std::string& line : lines)
        list += line + "\r\n";
    return list;
}

Lines titles_of(const Lines& lines) {
    Lines titles;
    for (std::size_t index = 0; index + 1 < lines.size(); ++index)
        if (!lines[index].empty())
            titles.push_back(lines[index++]);
    return titles;
}

bool ends_at_title(const Lines& lines) {
    bool is_title = false;
    for (const std::string& line : lines)
        is_title = !is_title && !line.empty();
    return is_title;
}

} // namespace lookfar::testing
