#include "chart/vorndblabelIE.h" // the chief header gives the collection too

#include "labels/DrLabel.h"
#include "platform/system/exceptions.h"
#include "tests/support/strings_print.h"

#include <typeinfo>

namespace vorn::test {
namespace {

class ControlCollection : public testing::Test {
protected:
    TComponent owner{nullptr};
    TControlList list{&owner};
    TDRLabel label{nullptr};
    TLabel other{nullptr};
};

/// The text, which must be raised as a plain Exception.
template <typename F>
std::string Raised(F action)
{
    try {
        action();
    } catch (const Exception& error) {
        EXPECT_EQ(typeid(error), typeid(Exception));
        return error.what();
    }
    return {};
}

TEST_F(ControlCollection, AControlStandsInItOnce)
{
    TControlItem& first = *list.Add();
    TControlItem& second = *list.Add();
    EXPECT_EQ(first.Control(), nullptr);
    first.SetControl(&label);
    first.SetControl(&label);
    EXPECT_EQ(Raised([&] { second.SetControl(&label); }), "Control already exists in list.");
    EXPECT_EQ(second.Control(), nullptr);
    second.SetControl(&other);
    EXPECT_EQ(Raised([&] { second.SetControl(&label); }), "Control already exists in list.");
    EXPECT_EQ(Raised([&] { second.SetControl(nullptr); }), "You cannot set Control to nil");
    EXPECT_EQ(second.Control(), &other) << "both failures leave it";

    TControlList another(nullptr);
    another.Add()->SetControl(&label);
    EXPECT_EQ(list.GetOwner(), &owner);
    EXPECT_EQ(list.GetItem(1), &second);
}

TEST_F(ControlCollection, ItemsAreShownByTheirControl)
{
    TControlItem& item = *list.Add();
    EXPECT_EQ(Utf8(item.DisplayName()), "TControlItem");
    item.SetControl(&label);
    EXPECT_EQ(Utf8(item.DisplayName()), "TDRLabel");
    label.SetName(u"modello");
    EXPECT_EQ(Utf8(item.DisplayName()), "modello");
}

TEST_F(ControlCollection, CopiesGoThroughTheSameChecks)
{
    TControlItem& filled = *list.Add();
    TControlItem& empty = *list.Add();
    filled.SetControl(&label);
    EXPECT_EQ(Raised([&] { filled.Assign(empty); }), "You cannot set Control to nil");
    EXPECT_EQ(Raised([&] { list.SetItem(1, filled); }), "Control already exists in list.");
    TControlList another(&owner);
    another.Add();
    another.SetItem(0, filled);
    EXPECT_EQ(another.Items(0)->Control(), &label);
    EXPECT_EQ(MessageOf<EConvertError>([&] { owner.Assign(filled); }), "Cannot assign a TControlItem to a TComponent");
}

} // namespace
} // namespace vorn::test
