#include "tests/forms/form_classes.h"

namespace vorn {

using namespace test;

namespace {

const TOrdinalType moods = TOrdinalType::Enumeration({u"Calm", u"Keen", u"Wild"});
const TOrdinalType marks = TOrdinalType::Set({u"mkFirst", u"mkSecond", u"mkThird"});
const TOrdinalType colors{0, 0xFFFFFFFF, {{0xFF, u"clRed"}, {0x80000005, u"clWindow"}}, true};

TComponent* BelowOf(const TComponent& tile)
{
    return static_cast<const Tile&>(tile).below;
}

void PutOn(TComponent& tile, TComponent& below)
{
    static_cast<Tile&>(tile).LieOn(static_cast<Tile*>(&below));
}

std::vector<TComponent*> ChildrenOf(const TComponent& tile)
{
    const auto& children = static_cast<const Tile&>(tile).children;
    return {children.begin(), children.end()};
}

} // namespace

template <>
const TPublishedClass& Published<Tile>()
{
    static const TPublishedClass table
        = TPublisher<Tile>(u"Tile", &Published<TComponent>()).Places({BelowOf, PutOn, ChildrenOf}).Table();
    return table;
}

template <>
const TPublishedClass& Published<Inner>()
{
    static const TPublishedClass table
        = TPublisher<Inner>(u"Inner", &Published<TPersistent>()).Field<&Inner::depth>(u"Depth").Default(0).Table();
    return table;
}

template <>
const TPublishedClass& Published<Part>()
{
    static const TPublishedClass table
        = TPublisher<Part>(u"Part", &Published<TPersistent>())
              .Field<&Part::text>(u"Text")
              .Reference<&Part::link, [](Part& p, TComponent* c) { p.link = c; }>(u"Link")
              .Object<&Part::inner>(u"Inner")
              .Table();
    return table;
}

template <>
const TPublishedClass& Published<Entry>()
{
    static const TPublishedClass table = TPublisher<Entry>(u"Entry", &Published<TPersistent>())
                                             .Field<&Entry::number>(u"Number")
                                             .Default(7)
                                             .Reference<&Entry::Link, &Entry::SetLink>(u"Link")
                                             .Table();
    return table;
}

template <>
const TPublishedClass& Published<Sample>()
{
    static const TPublishedClass table
        = TPublisher<Sample>(u"Sample", &Published<Tile>())
              .Field<&Sample::flag>(u"Flag")
              .Default(true)
              .Field<&Sample::byte>(u"Byte")
              .Default(std::uint8_t{0})
              .Field<&Sample::small>(u"Small")
              .Default(std::int16_t{0})
              .Field<&Sample::count>(u"Count")
              .Field<&Sample::color>(u"Color")
              .Names(colors)
              .Default(0)
              .Field<&Sample::ratio>(u"Ratio")
              .Default(0.0)
              .Field<&Sample::text>(u"Text")
              .Default(u"")
              .Enumeration<&Sample::mood, [](Sample& s, Mood m) { s.mood = m; }>(u"Mood", moods)
              .Default(Mood::Calm)
              .Set<&Sample::marks, [](Sample& s, std::uint8_t m) { s.marks = m; }>(u"Marks", marks)
              .Default(0)
              .Field<&Sample::place>(u"Place")
              .Default(TPoint{})
              .Object<&Sample::part>(u"Part")
              .Collection<&Sample::entries, Entry>(u"Entries")
              .Strings<&Sample::lines>(u"Lines")
              .Reference<&Sample::peer, [](Sample& s, Sample* p) { s.peer = p; }>(u"Peer")
              .Property<&Sample::Guarded, &Sample::SetGuarded>(u"Guarded")
              .Default(0)
              .Field<&Sample::count>(u"Amount")
              .NeverStored()
              .Event<&Sample::OnOpen>(u"OnOpen")
              .Event<&Sample::OnChange>(u"OnChange")
              .Table();
    return table;
}

void test::RegisterSampleClasses()
{
    RegisterClass(Published<Tile>());
    RegisterClass(Published<Sample>());
}

} // namespace vorn
