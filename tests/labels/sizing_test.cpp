#include "tests/labels/label_fixture.h"

namespace vorn {
namespace {

class LabelSizing : public LabelTest {
protected:
    LabelSizing()
    {
        text.SetParent(view.get());
        text.SetCaption(u"Corona");
        label = new TDRLabel(nullptr);
        label->SetParent(view.get());
        label->SetCaption(u"Corona");
    }

    TLabel text{nullptr}; // what the caption alone takes
    TDRLabel* label;
};

TEST_F(LabelSizing, ListAddsTheGlyphsWidthOrOne)
{
    struct Case {
        int index, count, added;
    };
    const Case cases[] = {{-1, 1, 1}, {0, 1, 40}, {3, 3, 40}, {-2, 1, 40}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.index);
        TCustomImageList images(nullptr, 40, 4);
        for (int i = 0; i < c.count; ++i)
            images.AddImage(Coordinates(40, 4));
        label->SetImageIndex(c.index);
        label->SetImages(&images);
        EXPECT_EQ(label->Width(), text.Width() + c.added);
        EXPECT_EQ(label->Height(), text.Height()) << "taller than the glyph, it keeps its height";
        // Neither the alignment nor whether the glyph is shown counts, and measuring again adds nothing.
        label->SetGliphVisible(!label->GliphVisible());
        label->SetPictureXAlignment(TXAlign::alXCenter);
        label->Font().SetColor(label->Font().Color() == clRed ? clBlue : clRed);
        EXPECT_EQ(label->Width(), text.Width() + c.added);
        label->SetImages(nullptr);
        EXPECT_EQ(label->Width(), text.Width());
    }
}

TEST_F(LabelSizing, WrappedTextMakesRoomForTheGlyphOnce)
{
    TCustomImageList images(nullptr, 16, 4);
    for (const TAlignment alignment : {TAlignment::taLeftJustify, TAlignment::taRightJustify}) {
        label->SetImages(nullptr);
        label->SetWordWrap(true);
        label->SetAlignment(alignment);
        label->SetBounds(100, 0, 60, 13);
        label->SetImages(&images);
        EXPECT_EQ(label->Width(), 61);
        label->SetImageIndex(0);
        const TRect place = label->BoundsRect();
        EXPECT_EQ(place.Width(), 76);
        EXPECT_EQ(place.Right, alignment == TAlignment::taLeftJustify ? 176 : 160);
        label->SetCaption(u"Corona in ceramica su moncone");
        label->SetCaption(u"Corona");
        label->Font().SetStyle(label->Font().Style() ^ fsBold);
        EXPECT_EQ(label->BoundsRect().Left, place.Left);
        EXPECT_EQ(label->Width(), 76);
        label->SetImageIndex(-1);
    }
    TDRLabel read(nullptr); // from a form, whose width holds the glyph
    read.SetLoading(true);
    read.SetWordWrap(true);
    read.SetImageIndex(0);
    read.SetImages(&images);
    read.SetBounds(0, 0, 76, 13);
    read.Loaded();
    read.SetCaption(u"Corona");
    EXPECT_EQ(read.Width(), 76);
}

TEST_F(LabelSizing, GrowsToTheGlyphsHeight)
{
    TCustomImageList images(nullptr, 8, text.Height() + 7);
    label->SetImages(&images);
    EXPECT_EQ(label->Height(), text.Height() + 7);
    images.SetSize(8, text.Height() - 1);
    EXPECT_EQ(label->Height(), text.Height()) << "a change of the list measures anew";
}

} // namespace
} // namespace vorn
