#include "entries/summary/summary_fields.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace kelvane::entries {
namespace {

using Fields = std::vector<SummaryField>;

TEST(SummaryFields, AreNamedInTheirOrder) {
    EXPECT_EQ(SummaryFieldsOf(""), Fields{});
    EXPECT_EQ(SummaryFieldsOf("month"), Fields{SummaryField::Month});
    EXPECT_EQ(SummaryFieldsOf("keyword,item,month,element,center"),
              (Fields{SummaryField::Keyword, SummaryField::Item, SummaryField::Month,
                      SummaryField::Element, SummaryField::Center}));
}

TEST(SummaryFields, OfOtherNamesAreRefused) {
    for (const auto& [names, refused] : {std::pair("items", "items"),
                                         {"item,item", "item"},
                                         {"item,", ""},
                                         {",item", ""},
                                         {",", ""},
                                         {"item, element", " element"},
                                         {"Item", "Item"},
                                         {" ", " "}}) {
        try {
            SummaryFieldsOf(names);
            ADD_FAILURE() << names;
        } catch (const std::invalid_argument& failed) {
            EXPECT_STREQ(failed.what(), refused) << names;
        }
    }
}

TEST(SummaryFields, AreDeclaredByTheirValues) {
    std::string names;
    for (const DeclaredSummaryField& each : DeclaredSummaryFields()) {
        EXPECT_EQ(&Declared(each.field), &each);
        EXPECT_EQ(SummaryFieldsOf(each.name), Fields{each.field});
        names += std::string(each.name) + " ";
    }
    EXPECT_EQ(names, "item element center keyword month ");
}

}  // namespace
}  // namespace kelvane::entries
