// The contract page tells every function of the host as its header declares it.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <string>

#include <gtest/gtest.h>

namespace {

// Library and name to result and arguments.
using declarations = std::map<std::string, std::string>;

std::string text_of(const std::filesystem::path& file) {
    std::ifstream text(std::filesystem::path(VS_SOURCE_DIR) / file);
    return {std::istreambuf_iterator<char>(text), {}};
}

declarations declared_in_headers() {
    static const std::regex noise("//[^\n]*|#[^\n]*|extern \"C\" \\{"), blanks("\\s+");
    static const std::regex declaration(" ?([\\w ]+\\*?) (\\w+)\\(([^)]*)\\);");
    declarations found;
    const std::filesystem::path host =
        std::filesystem::path(VS_SOURCE_DIR) / "plugin/app/project_resave_bdl/host";
    for (const auto& entry : std::filesystem::directory_iterator(host)) {
        const std::string library = entry.path().stem().string();
        if (!library.starts_with("vsk_")) continue;
        const std::string text =
            std::regex_replace(std::regex_replace(text_of(entry.path()), noise, ""), blanks, " ");
        for (std::sregex_iterator row(text.begin(), text.end(), declaration), end; row != end; ++row)
            found[library + " " + (*row)[2].str()] = (*row)[1].str() + " (" + (*row)[3].str() + ")";
    }
    return found;
}

declarations told_on_the_page() {
    static const std::regex row("(?:^|\n)(?:## (\\w+)|\\| `(\\w+)` \\| (?:-|`([^`]*)`) \\| `([^`]*)` \\|)");
    const std::string page = text_of("docs/host_contract.md");
    declarations found;
    std::string library;
    for (std::sregex_iterator match(page.begin(), page.end(), row), end; match != end; ++match) {
        if ((*match)[1].matched)
            library = (*match)[1];
        else
            found[library + " " + (*match)[2].str()] = (*match)[4].str() + " (" + (*match)[3].str() + ")";
    }
    return found;
}

TEST(contract, page_and_headers_tell_the_same_functions) {
    const declarations headers = declared_in_headers(), page = told_on_the_page();
    EXPECT_GT(headers.size(), 190U);
    for (const auto& [name, declaration] : headers) {
        const auto told = page.find(name);
        EXPECT_EQ(told == page.end() ? "not on the page" : told->second, declaration) << name;
    }
    for (const auto& [name, told] : page)
        EXPECT_TRUE(headers.contains(name)) << name << " is only on the page";
}

} // namespace
