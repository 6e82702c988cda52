#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>

#include "framework/ref.h"
#include "framework/visitors.h"

namespace vs::project_resave {
namespace {

struct pair_of_numbers {
    uint64_t first, second;
};

class lamp_impl : public interface_of<lamp_impl> {
public:
    static constexpr const char* name = "vs_lamp_interface_5";
    virtual int brightness(int step) = 0;
    virtual uint64_t sum(pair_of_numbers numbers) = 0;
    virtual void describe(string_visitor visitor) = 0;
    virtual string_visitor last_visitor() = 0;
    using operations = operation_list<&lamp_impl::brightness, &lamp_impl::sum, &lamp_impl::describe,
                                      &lamp_impl::last_visitor>;
};
using lamp = interface_to<lamp_impl>;

class switch_impl : public interface_of<switch_impl> {
public:
    static constexpr const char* name = "vs_switch_interface_1";
    static constexpr bool rooted_in_identity = true;
    virtual bool on() { return true; }
    using operations = operation_list<&switch_impl::on>;
};

int living = 0;

class desk_lamp : public referent<polymorphic<lamp_impl, polymorphic<switch_impl>>> {
public:
    desk_lamp() { ++living; }
    ~desk_lamp() override { --living; }
    int brightness(int step) override {
        if (step < 0) throw std::runtime_error("broken");
        return 10 * step;
    }
    uint64_t sum(pair_of_numbers numbers) override { return numbers.first + numbers.second; }
    void describe(string_visitor visitor) override {
        last = visitor;
        tell(visitor, u"desk");
        tell(visitor, u"lamp");
    }
    string_visitor last_visitor() override { return last; }

    string_visitor last;
};

lamp lamp_of(desk_lamp& object) { return pointer_to<lamp_impl>(object); }

TEST(interface, a_call_reaches_the_object_and_a_null_pair_gives_zero) {
    desk_lamp object;
    const lamp pair = lamp_of(object);
    EXPECT_EQ(30, call<&lamp_impl::brightness>(pair, 3));
    EXPECT_EQ(12u, call<&lamp_impl::sum>(pair, pair_of_numbers{5, 7}));
    for (const lamp& broken : {lamp{}, lamp{{pair.table, nullptr}}, lamp{{nullptr, pair.instance}}}) {
        EXPECT_EQ(0, call<&lamp_impl::brightness>(broken, 3));
        EXPECT_FALSE(call<&lamp_impl::last_visitor>(broken));
        EXPECT_FALSE(cast_to<switch_impl>(broken));
    }
}

TEST(interface, an_exception_inside_does_not_cross_the_border) {
    desk_lamp object;
    EXPECT_EQ(0, call<&lamp_impl::brightness>(lamp_of(object), -1));
}

TEST(interface, visitors_keep_what_they_are_told_and_pairs_come_back_whole) {
    desk_lamp object;
    wide_string last;
    std::vector<wide_string> all;
    stdwstring_visitor single(last);
    stdwstring_list_visitor list(all);
    call<&lamp_impl::describe>(lamp_of(object), list);
    call<&lamp_impl::describe>(lamp_of(object), single);
    EXPECT_EQ(u"lamp", last);
    EXPECT_EQ((std::vector<wide_string>{u"desk", u"lamp"}), all);
    EXPECT_EQ(static_cast<string_visitor>(single), call<&lamp_impl::last_visitor>(lamp_of(object)));
}

TEST(interface, a_table_has_identity_then_base_then_the_operations_in_order) {
    desk_lamp object;
    using brightness = int (*)(const void*, void*, int);
    const lamp pair = lamp_of(object);
    EXPECT_EQ(20, static_cast<const brightness*>(pair.table)[2](pair.table, pair.instance, 2));
    const auto rooted = cast_to<switch_impl>(pair);
    using on = bool (*)(const void*, void*);
    EXPECT_TRUE(static_cast<const on*>(rooted.table)[1](rooted.table, rooted.instance));
    EXPECT_EQ(table_of<lamp_impl>(), pair.table);
    EXPECT_NE(pair.table, rooted.table);
}

TEST(interface, one_object_answers_each_of_its_names_exactly_and_has_one_identity) {
    desk_lamp object;
    const lamp pair = lamp_of(object);
    const auto other = cast_to<switch_impl>(pair);
    EXPECT_TRUE(call<&switch_impl::on>(other));
    EXPECT_TRUE(cast_to<referent_impl>(other));
    EXPECT_EQ(pair, cast_to<lamp_impl>(other));
    EXPECT_EQ(identity_of(static_cast<const interface_pointer&>(pair)),
              identity_of(static_cast<const interface_pointer&>(other)));
    const void *table = &object, *untouched = table;
    void* instance = &object;
    object.query("vs_lamp_interface_4", &table, &instance);
    EXPECT_EQ(untouched, table);
    EXPECT_FALSE(query_name(identity_of(static_cast<const interface_pointer&>(pair)), "vs_lamp_interface_4"));
}

TEST(ref, the_last_strong_one_ends_the_object_once_and_the_weak_ones_learn_of_it) {
    auto* object = new desk_lamp;
    const lamp pair = lamp_of(*object);
    ref<lamp_impl, true> weak(pair);
    {
        ref<lamp_impl> strong(pair);
        ref<lamp_impl> copy(strong), moved(std::move(copy));
        strong = moved;
        const ref<lamp_impl>& same = strong;
        strong = same;
        std::vector<ref<lamp_impl>> grown;
        for (int i = 0; i < 20; ++i) grown.push_back(strong);
        strong.reset();
        EXPECT_EQ(1, living);
        EXPECT_TRUE(weak);
    }
    EXPECT_EQ(0, living);
    EXPECT_FALSE(weak);
}

// A referrer without a pointer keeps the object alive, and a removal that finds nothing still runs the last
// test.
TEST(ref, an_object_lives_as_long_as_a_row_keeps_it_and_no_longer) {
    auto* object = new desk_lamp;
    object->add_referrer({});
    { const ref<lamp_impl> strong(lamp_of(*object)); }
    EXPECT_EQ(1, living);
    object->remove_referrer({});
    EXPECT_EQ(0, living);

    auto* unheld = new desk_lamp;
    unheld->remove_referrer({{&living, &living}});
    EXPECT_EQ(0, living);
}

class owner_of_itself : public desk_lamp {
public:
    ref<lamp_impl> itself{lamp_of(*this)};
};

TEST(ref, an_object_that_holds_itself_is_destroyed_once) {
    auto* object = new owner_of_itself;
    object->itself.reset();
    EXPECT_EQ(0, living);
    desk_lamp wrapped_one;
    referent_pointer of_wrapped;
    wrapped_one.as_referent(of_wrapped);
    EXPECT_EQ(of_wrapped, wrapped_one.self());
}

} // namespace
} // namespace vs::project_resave
