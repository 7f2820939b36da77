#pragma once

#include "platform/forms/form_file.h"
#include "platform/system/strings.h"
#include "tests/forms/form_classes.h"
#include "tests/support/strings_print.h"

#include <gtest/gtest.h>

namespace vorn::test {

/// Reads and writes forms of the sample classes; nothing made may be left at the end of a test.
class FormTest : public testing::Test {
protected:
    FormTest()
    {
        RegisterSampleClasses();
        Tile::loaded.clear();
        Sample::onGuarded = nullptr;
        offers.Offer<TNotifyEvent>(u"Open", [this](TObject* sender) { opened.push_back(sender); });
        offers.Offer<Change>(u"Change", [](TObject*, int by, bool& handled) { handled = by > 0; });
    }
    ~FormTest() override
    {
        Sample::onGuarded = nullptr;
        EXPECT_EQ(Tile::alive, 0);
    }

    std::string Rewritten(const std::string& text) { return Utf8(WriteForm(*MakeForm(FromUtf8(text), offers))); }
    /// The error that reading gives.
    std::string Error(const std::string& text)
    {
        return MessageOf<EFormError>([&] { MakeForm(FromUtf8(text), offers); });
    }
    /// The same for the lines inside of a Sample named s; its own line is the first.
    std::string ErrorIn(const std::string& lines) { return Error("object s: Sample\n" + lines + "\nend\n"); }

    TFormOffers offers;
    std::vector<TObject*> opened;
};

/// A form with a property of every kind, no value of which is the default, as it is written.
inline const std::string FullForm = R"(object form: Tile
  Tag = -5
  object carpet: Tile
    object cup: Tile
    end
    object Tile
    end
  end
  object first: Sample
    Flag = False
    Byte = 255
    Small = -32768
    Count = -2147483648
    Color = $00FF8001
    Ratio = -0.1
    Text = 'it''s'#13#10'caf'#233#55357#56832
    Mood = Wild
    Marks = [mkFirst, mkThird]
    Place = (3, -5)
    Part.Text = ''
    Part.Link = form
    Part.Inner.Depth = 9
    Entries = <
      item
        Number = 1
        Link = second
      end
      item
        Link = first
      end
    >
    Lines = (
      'one'
      ''
      '  three'
    )
    Peer = second
    Guarded = 4
    OnOpen = Open
    OnChange = Change
  end
  object second: Sample
    Count = 0
    Color = clRed
    Part.Text = 'x'
    Part.Link = cup
    Entries = <>
    Lines = ()
    Peer = first
  end
end
)";

} // namespace vorn::test
