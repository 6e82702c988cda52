// The page of --report: texts of a project do no harm in it, it contains every problem and file once, and it
// never replaces a file that is needed. tests/browser opens it in a browser.
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "apps/vestra_resave/report/escaping.h"
#include "apps/vestra_resave/report/folder_tree.h"
#include "apps/vestra_resave/report/page_facts.h"
#include "apps/vestra_resave/report/page_file.h"
#include "apps/vestra_resave/report/page_html.h"
#include "tests/apps/command_run.h"
#include "tests/support/faulty_system.h"

namespace vs::project_resave {
namespace {

using namespace vestra::command;
using nlohmann::json;
using std::string;

size_t count_of(const string& part, const string& text) {
    size_t count = 0;
    for (size_t at = 0; (at = text.find(part, at)) != string::npos; at += part.size()) ++count;
    return count;
}

// Returns the data block of a page as its script reads it.
json data_in(const string& page) {
    const string begin = "id=\"data\">";
    const size_t at = page.find(begin) + begin.size();
    return json::parse(page.substr(at, page.find("</script>", at) - at));
}

page_facts facts_with(std::vector<problem> problems, std::vector<page_file> files = {}) {
    page_facts facts;
    facts.title = "Resave";
    facts.project = u"C:\\prj\\area._vp";
    facts.new_project = u"N:\\out\\area._vp";
    facts.problems = std::move(problems);
    facts.files = std::move(files);
    return facts;
}

class report_page : public command_run {
protected:
    // Returns the page at this path; empty if there is none.
    string page(const wide_string& path) const { return read(path); }
};

TEST_F(report_page, what_a_project_holds_does_no_harm) {
    const wide_string evil =
        u"</script><script>alert('x')</script>\u2028<!--<img src=\"q\" onerror=\"y\">&amp;";
    const element_name element{u"", evil, evil};
    const wide_string path = u"C:\\prj\\" + evil + u"\u202Efdp.exe";
    const string html = html_of(facts_with({{"copy_failed", element, path, u"N:\\" + evil, evil}},
                                           {{path, u"N:\\out\\" + evil, 5, "copied", element, "</script>"}}));
    EXPECT_EQ(2U, count_of("<script", html)); // the data and the script
    EXPECT_EQ(2U, count_of("</script", html));
    EXPECT_EQ(0U, count_of("<img", html) + count_of("<!--", html));
    EXPECT_EQ(0U, count_of("\u2028", html.substr(html.find("id=\"data\""))));
    EXPECT_EQ(0U, count_of("\u202E", html)); // nor in the data, whose folders are those of the tree
    EXPECT_EQ(0U, count_of("://", html));    // nothing is fetched
    const json data = data_in(html);
    EXPECT_EQ("</script>", data.at("notes").at(0));
    EXPECT_NE(string::npos, data.at("elements").at(0).get<string>().find("onerror=\"y\">&amp;")) << data;
    const std::pair<string, string> rows[] = {{"<>&\"'", "&lt;&gt;&amp;&quot;&#39;"},
                                              {"Скважины", "Скважины"},
                                              {"a\x01\x7F", "a\uFFFD\uFFFD"},
                                              {"\u2067x\u2069", "\uFFFDx\uFFFD"}};
    for (const auto& [text, shown] : rows) EXPECT_EQ(shown, escaped(text));
}

TEST_F(report_page, problems_of_every_kind_are_shown_each_once) {
    std::vector<problem> all;
    for (int fact = 0; fact <= static_cast<int>(fact_kind::exception_caught); ++fact)
        all.push_back({name_of(static_cast<fact_kind>(fact)), {}, u"C:\\", u"N:\\x"});
    for (const char* name :
         {own_kind::outside, own_kind::interrupted, own_kind::unreferenced, own_kind::stale, own_kind::pruned,
          own_kind::changed_since, own_kind::found, own_kind::not_searched, own_kind::left_behind,
          own_kind::dropped, own_kind::left_alone, own_kind::unreadable, own_kind::manifest_missing,
          own_kind::not_created, own_kind::too_little_space, own_kind::copy_missing})
        all.push_back({name, {}, u"C:\\", {}});
    all.push_back({own_kind::reference_missing, {}, u"C:\\", {}, {}, "layer", u"C:\\prj\\area._vp"});
    for (size_t number = 0; number < 70; ++number) all.push_back({"source_lost", {}, u"C:\\", {}});
    for (size_t number = 0; number < all.size(); ++number)
        all[number].path += platform::from_utf8("file" + std::to_string(number) + ".tif"),
            all[number].reason = platform::from_utf8("reason" + std::to_string(number) + ".");
    const string html = html_of(facts_with(all));
    for (size_t number = 0; number < all.size(); ++number)
        EXPECT_EQ(1U, count_of("reason" + std::to_string(number) + ".<", html)) << all[number].kind;
    EXPECT_EQ(all.size(), count_of("<li class=\"found\">", html));
    EXPECT_NE(string::npos, html_of(facts_with({})).find("No problems."));
}

TEST_F(report_page, folders_add_up_to_what_is_in_them) {
    folder_list list;
    for (const wide_view file : {u"N:\\out\\a\\x", u"N:\\out\\a\\b\\y", u"N:\\out\\a\\b\\z", u"N:\\out\\q"})
        list.add(wide_string(file));
    EXPECT_EQ(shown("N:\\out\\"), list.common_root());
    const string slash = shown("N:\\").substr(shown("N:\\").size() - 1);
    EXPECT_EQ((std::vector<string>{"a" + slash, "a" + slash + "b" + slash, ""}),
              list.below(list.common_root()));

    folder_tree tree;
    tree.add("", 1, false);
    tree.add("a/", 10, false);
    for (int file = 0; file < 3; ++file) tree.add("a/b/", 100, file == 0);
    tree.add("D:\\other\\", 1000, true);
    string deep;
    for (int level = 0; level < 5000; ++level) deep += "d/";
    tree.add(deep, 7, false);
    const auto& nodes = tree.nodes();
    EXPECT_EQ(7U, nodes[0].files);
    EXPECT_EQ(1318U, nodes[0].bytes);
    EXPECT_EQ("a/", nodes[1].name);
    EXPECT_EQ(4U, nodes[1].files);
    EXPECT_EQ(310U, nodes[1].bytes);
    EXPECT_EQ("a/b/", nodes[2].path);
    EXPECT_EQ(1U, nodes[2].problems);
    const string html = tree.html("/out/");
    EXPECT_NE(string::npos, html.find("data-path=\"D:\\\"><span class=\"name\">D:\\</span>"));
    EXPECT_NE(string::npos, html.find("<span class=\"count\">6</span>"));
    for (int folder = 0; folder < 5000; ++folder) tree.add("m/" + std::to_string(folder) + "/", 1, false);
    EXPECT_GE(2100U, count_of("class=\"folder\"", tree.html("/out/")));
    EXPECT_NE(string::npos, tree.html("/out/").find("more folders</li>"));
}

// If REPORT_PAGE is set, the page with 100,000 files is stored there for a browser.
TEST_F(report_page, very_many_files_are_each_in_it_once) {
    const char* const kept = std::getenv("REPORT_PAGE");
    const size_t count = kept ? 100000 : 1000;
    std::vector<page_file> files;
    uint64_t bytes = 0;
    for (size_t number = 0; number < count; ++number) {
        const wide_string name =
            platform::from_utf8(std::to_string(number % 997) + "\\file " + std::to_string(number) + ".tif");
        files.push_back(
            {u"C:\\maps\\" + name, u"N:\\out\\rtr\\" + name, number, "copied", {u"", u"Layer", u"Scene"}});
        bytes += number;
    }
    const string html = html_of(facts_with({}, std::move(files)));
    const json data = data_in(html);
    std::set<std::pair<int, string>> places;
    uint64_t sum = 0;
    for (const json& row : data.at("files")) {
        places.emplace(row.at(2), row.at(1));
        sum += row.at(4).get<uint64_t>();
    }
    EXPECT_EQ(count, places.size());
    EXPECT_EQ(bytes, sum);
    EXPECT_EQ(997U, data.at("after").at("folders").size());
    if (kept) std::ofstream(kept, std::ios::binary) << html;
}

TEST_F(report_page, changes_nothing_else_of_a_command) {
    write(u"C:\\prj\\r.tif", "0123456789");
    builder.scene_2d(u"S").layer("rtr_lr2d", u"R", src(u"r.tif")).layer("rtr_lr2d", u"G", u"C:\\gone.tif");
    builder.save(source);
    const string resave = "resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --json --quiet";
    std::filesystem::create_directories(native("n") / "pages");
    EXPECT_EQ(1, command(resave + " --dry-run"));
    const json plan = json::parse(out);
    EXPECT_EQ(1, command(resave + " --dry-run --report 'N:\\pages\\dry.html'")) << err;
    EXPECT_EQ(plan.at("files"), json::parse(out).at("files"));
    EXPECT_EQ(plan.at("problems"), json::parse(out).at("problems"));
    EXPECT_EQ("", made());
    EXPECT_EQ(1, command(resave + " --manifest --report 'N:\\out\\new.html'")) << err;
    EXPECT_EQ(plan.at("problems"), json::parse(out).at("problems"));
    EXPECT_EQ(string::npos, read(u"N:\\out\\new.manifest.json").find("new.html"));
    const json rows = data_in(page(u"N:\\out\\new.html")).at("files");
    EXPECT_EQ(rows.size(), data_in(page(u"N:\\pages\\dry.html")).at("files").size());
    ASSERT_EQ(3U, rows.size()) << rows; // the raster, the project, and the lost file
    EXPECT_EQ(10, rows.at(0).at(4));
    EXPECT_EQ(-1, rows.at(2).at(2));
    // It is not in the way of the next run either.
    EXPECT_EQ(1, command(resave + " --update --prune --report 'N:\\out\\new.html'")) << err;
    EXPECT_EQ(json::array(), json::parse(out).at("changed_since"));
    EXPECT_EQ(1, command("verify 'N:\\out\\new._vp' --manifest --report 'N:\\out\\new.html' --language ru"))
        << err;
    EXPECT_NE(string::npos, page(u"N:\\out\\new.html").find("<html lang=\"ru\">"));
    EXPECT_EQ(" new._vp new.html new.manifest.json rtr rtr/r.tif", made());
}

TEST_F(report_page, replaces_no_file_that_is_needed) {
    for (const wide_view file : {u"r.html", u"s.shp", u"s.shx", u"s.dbf"}) write(src(file), "what is mine");
    builder.scene_2d(u"S").layer("rtr_lr2d", u"R", src(u"r.html")).layer("shp_pnt_lr2d", u"P", src(u"s.shp"));
    builder.save(source);
    write(u"C:\\prj\\free.html", "an older page");
    const tree_state before = sources();
    const string resave =
        "resave 'C:\\prj\\area._vp' 'N:\\out\\new.html' --structure from-project-folder --report '";
    const std::pair<const char*, const char*> refused[] = {
        {"C:\\prj\\r.html", "is a file of the project and must not be overwritten"},
        {"C:\\prj\\s.x.html", "it would look like a file of the data set next to it"},
        {"C:\\prj", "is a folder; give the name of a file"},
        {"C:\\prj\\free.txt", "is not a valid report name: it must end in .html"},
        {"C:\\nowhere\\page.html", "the folder for the report does not exist"},
        {"N:\\out\\new.html", "the new project has the same name"}};
    for (const auto& [path, reason] : refused) {
        EXPECT_EQ(2, command(resave + path + "'")) << path;
        EXPECT_TRUE(is_told(reason)) << err;
        EXPECT_EQ("", made()) << path;
    }
    const std::pair<const char*, const char*> failed[] = {
        {"N:\\out\\r.html", "another file has this name"},
        {"N:\\out\\s.html", "it would look like a file of the data set next to it"}};
    for (const auto& [path, reason] : failed) {
        clear_output();
        EXPECT_EQ(1, command(resave + path + "' --json")) << path;
        EXPECT_TRUE(is_told("could not be created: " + string(reason))) << err;
        EXPECT_EQ("not_created", json::parse(out).at("problems").at(0).at("kind"));
        EXPECT_EQ(" new.html r.html s.dbf s.shp s.shx", made());
        EXPECT_EQ("what is mine", read(u"N:\\out\\r.html"));
    }
    EXPECT_EQ("", difference(before, sources()));
    EXPECT_EQ(0, command("verify 'C:\\prj\\area._vp' --report 'C:\\prj\\free.html'")) << out << err;
    EXPECT_EQ(0U, page(u"C:\\prj\\free.html").find("<!DOCTYPE html>"));
}

TEST_F(report_page, that_cannot_be_written_is_reported_and_the_older_one_kept) {
    const wide_string path = write(u"N:\\page.html", "an older page");
    const tree_state before = state_of(native("n"));
    for (const char* call : {"open to write", "write", "close", "rename"}) {
        faulty_system faults({call}, 1);
        std::vector<problem> found;
        {
            const platform::system_override in_force(faults);
            found = write_page(platform::to_utf8(path), facts_with({}));
        }
        ASSERT_EQ(1U, found.size()) << call;
        EXPECT_TRUE(found[0].kind == own_kind::not_created && !found[0].reason.empty()) << call;
        EXPECT_EQ("", difference(before, state_of(native("n")))) << call;
    }
}

} // namespace
} // namespace vs::project_resave
