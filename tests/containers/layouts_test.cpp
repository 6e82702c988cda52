// Layouts with their images, pages, frames and legends: what is copied, rewritten and kept.
#include "tests/support/builder_run.h"

namespace vs::project_resave {
namespace {

using sign = project_builder::sign;

class layouts : public builder_run {
protected:
    layouts() {
        for (const wide_view file :
             {u"C:\\data\\i.tif", u"C:\\data\\i.tif.ovr", u"C:\\data\\i.tfw", u"C:\\data\\i_tif.pj4",
              u"C:\\data\\s.shp", u"C:\\data\\s.shx", u"C:\\data\\s.dbf", u"C:\\data\\t.tod",
              u"C:\\data\\b.tld", u"D:\\data\\i.tif"})
            write(wide_string(file));
        write(u"C:\\data\\t.tos", "TOS 1\nmember t.tod\n");
        settings.save_layer_files = settings.write_log = true;
    }
    // Runs the current project into an empty folder without a log.
    void run() {
        clear_output();
        builder_run::run();
        log = read(u"N:\\out\\new_log.txt");
        std::filesystem::remove(native("n") / "out/new_log.txt");
    }
    std::string log;
};

// All kinds of layers that a legend knows, and two that it does not.
const std::vector<sign> all_signs = {
    {"shp_pln_lr2d", u"Road", u"C:\\data\\s.shp"},   {"rtr_lr2d", u"Relief", u"C:\\data\\i.tif"},
    {"tos_2crd_lr2d", u"Depth", u"C:\\data\\t.tos"}, {"tld_lr2d", u"Base", u"C:\\data\\b.tld"},
    {"grid_lr2d", u"Grid", u"C:\\data\\i.tif"},      {"layout_text", u"Words", {}},
};
const std::string old_signs =
    "Signs{Signs: Road=C:\\data\\s.shp+C:\\data\\s.dbf Relief=C:\\data\\i.tif Depth=C:\\data\\t.tos "
    "Base=C:\\data\\b.tld Grid=C:\\data\\i.tif Words}";

} // namespace

TEST_F(layouts, each_structure_places_a_page_but_copies_nothing_for_it) {
    const std::tuple<uint32_t, wide_view, wide_view> rows[] = {
        {by_type, u"C:\\prj\\img\\p.fmt", u"N:\\out\\files"}, // without the file name
        {from_project_folder, u"C:\\prj\\img\\P.fmt", u"N:\\out\\img\\P.fmt"},
        {from_project_folder, u"D:\\img\\p.fmt", u"\\img\\p.fmt"}, // Kept as users know it: without a drive
        {project_tree_else_type, u"C:\\prj\\img\\p.fmt", u"N:\\out\\img\\p.fmt"},
        {project_tree_else_type, u"D:\\img\\p.fmt", u"N:\\out\\files\\p.fmt"},
        {from_common_top, u"C:\\prj\\p.fmt", u"N:\\out\\prj\\p.fmt"},
        {from_common_top, u"", u""},
    };
    for (const bool exists : {false, true}) {
        for (const auto& [structure, page, becomes] : rows) {
            SCOPED_TRACE(testing::Message() << structure << ' ' << platform::to_utf8(page));
            if (exists && !page.empty()) write(wide_string(page));
            settings.structure_variant = static_cast<project_resave::structure>(structure);
            settings.lower_case = true; // has no effect on a page
            builder.model.layouts.clear();
            builder.layout(u"Sheet").layer("layout_image", u"I", u"C:\\data\\i.tif").page(u"P", page);
            run();
            EXPECT_EQ(becomes, copy->layouts.at(0)->page->file);
            EXPECT_EQ(4U, files().size()) << "the image";
            EXPECT_EQ(texts{}, problems);
        }
    }
}

TEST_F(layouts, an_image_brings_its_companions_and_no_file_is_no_problem) {
    builder.layout(u"Sheet").layer("layout_image", u"Image", u"C:\\data\\i.tif");
    builder.layer("layout_text", u"Text", u"C:\\data\\b.tld").frame(u"Frame", u"gone").layout(u"Other");
    builder.layer("layout_ole_object", u"Object").layer("layout_legend", u"Plain legend");
    builder.layer("grid_lr2d", u"Unheard of here", u"C:\\data\\b.tld");
    builder.layer("vs_layout_legend_layer_meta_id", u"Shows nothing");
    run();
    EXPECT_EQ(1U, script.total) << "the image";
    EXPECT_EQ("rtr/i.tfw rtr/i.tif rtr/i.tif.ovr rtr/i_tif.pj4 \n"
              "Sheet: Image=rtr\\i.tif Text=C:\\data\\b.tld Frame\n"
              "Other: Object Plain legend Unheard of here=C:\\data\\b.tld Shows nothing\n",
              outcome());
    EXPECT_TRUE(context->report.unprocessed_types().empty());
}

TEST_F(layouts, legends_share_one_folder_and_only_shapes_have_layer_files) {
    builder.layout(u"Sheet").legend(u"Signs", all_signs);
    builder.legend(u"Signs", {{"shp_pgn_lr2d", u"Road again", u"C:\\data\\s.shp"},
                              {"rtr_lr2d", u"Other relief", u"D:\\data\\i.tif"}});
    builder.layout(u"Second").legend(u"Signs", {{"tld_lr2d", u"Base again", u"C:\\DATA\\B.tld"}});
    run(); // from the last to the first
    EXPECT_EQ(
        "Road again._lr Road._lr legend plus/B.tld legend plus/i.tif legend plus/i_(1).tfw "
        "legend plus/i_(1).tif legend plus/i_(1).tif.ovr legend plus/i_(1)_tif.pj4 legend plus/s.dbf "
        "legend plus/s.shp legend plus/s.shx legend plus/t.tod legend plus/t.tos \n"
        "Sheet: Signs{Signs: Road=legend plus\\s.shp+legend plus\\s.dbf Relief=legend plus\\i_(1).tif "
        "Depth=legend plus\\t.tos Base=legend plus\\B.tld Grid=C:\\data\\i.tif Words} "
        "Signs{Signs: Road again=legend plus\\s.shp+legend plus\\s.dbf Other relief=legend plus\\i.tif}\n"
        "Second: Signs{Signs: Base again=legend plus\\B.tld}\n",
        outcome());
    EXPECT_EQ((std::set<wide_string>{u"grid_lr2d", u"layout_text"}), context->report.unprocessed_types());
    EXPECT_NE(std::string::npos, log.find("\r\ngrid_lr2d \n\r\nlayout_text \n"));
}

TEST_F(layouts, a_legend_keeps_layers_that_are_lost_or_left_out) {
    builder.layout(u"Sheet").layer("layout_image", u"Image", u"C:\\data\\i.tif").legend(u"Signs", all_signs);
    settings.delete_lost_sources = true;
    std::filesystem::remove_all(native("c") / "data");
    run();
    // A lost file of a legend is listed under the legend's name, and the image is gone.
    EXPECT_EQ("\nSheet: " + old_signs +
                  "\n!Signs: Lost files Base\nLost files Depth\nLost files Relief\nLost files Road\n"
                  "Lost files Image\n",
              outcome());
    EXPECT_EQ(5U, times(platform::to_utf8(load_string(text::layer_3d_removed)), log)) << "for the signs too";

    builder.page(u"Page", u"C:\\prj\\p.fmt");
    unticked = {u"Image", u"Road", u"Relief", u"Depth", u"Base", u"Page"};
    run();
    EXPECT_EQ("\nSheet: " + old_signs + " |Page=C:\\prj\\p.fmt\n", outcome())
        << "a page can be left out by its uuid alone, and stays";
    unticked = {u"Image", u"scene of the legend"};
    builder.last().legend->id = *vestra::uuid::parse(builder.id(u"scene of the legend"));
    run();
    EXPECT_EQ("\nSheet: |Page=files\n", outcome()) << "a legend that is left out goes as a whole";
}

} // namespace vs::project_resave
