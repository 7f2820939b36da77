#pragma once

#include "platform/system/collection.h"
#include "platform/system/exceptions.h"
#include "platform/system/publisher.h"
#include "platform/system/string_list.h"

#include <algorithm>
#include <functional>

namespace vorn::test {

/// Counts what is alive, so that tests see what a failed reading leaves behind.
template <typename Base>
class Counted : public Base {
public:
    template <typename... Args>
    explicit Counted(Args&&... args) : Base(std::forward<Args>(args)...)
    {
        ++alive;
    }
    ~Counted() override { --alive; }
    static inline int alive = 0;
};

/// Components that lie on each other.
class Tile : public Counted<TComponent> {
public:
    explicit Tile(TComponent* owner) : Counted(owner) {}
    ~Tile() override
    {
        Destroying();
        while (!children.empty())
            delete children.back();
        LieOn(nullptr);
    }
    void LieOn(Tile* tile)
    {
        if (below)
            std::erase(below->children, this);
        below = tile;
        if (below)
            below->children.push_back(this);
    }

    Tile* below = nullptr;
    std::vector<Tile*> children;
    std::function<void()> onLoaded;
    void Loaded() override
    {
        TComponent::Loaded();
        loaded.push_back(Name());
        if (onLoaded)
            onLoaded();
    }
    static inline std::vector<String> loaded; ///< names in the order of their Loaded
};

enum class Mood : std::uint8_t { Calm, Keen, Wild };
using Change = std::function<void(TObject* Sender, int by, bool& handled)>;

class Inner : public TPersistent {
public:
    int depth = 0;
};

/// A part with everything that a part may have.
class Part : public TPersistent {
public:
    String text;
    TComponent* link = nullptr;
    Inner inner;
};

class Entry : public TCollectionItem {
public:
    explicit Entry(TCollection* collection) : TCollectionItem(collection) {}
    int number = 7;
    TComponent* Link() const { return link_; }
    void SetLink(TComponent* link)
    {
        if (!link)
            throw Exception(u"an entry needs a link");
        link_ = link;
    }

private:
    TComponent* link_ = nullptr;
};

/// A property of every kind.
class Sample : public Tile {
public:
    explicit Sample(TComponent* owner) : Tile(owner), entries(this, TCollection::MakeItem<Entry>) {}

    bool flag = true;
    std::uint8_t byte = 0;
    std::int16_t small = 0;
    int count = 0;
    std::uint32_t color = 0;
    double ratio = 0;
    String text;
    Mood mood = Mood::Calm;
    std::uint8_t marks = 0;
    TPoint place;
    Part part;
    TOwnedCollection entries;
    TStringList lines;
    Sample* peer = nullptr;
    TNotifyEvent OnOpen;
    Change OnChange;

    int Guarded() const { return guarded_; }
    void SetGuarded(int value)
    {
        if (value < 0)
            throw EConvertError(u"below zero");
        guarded_ = value;
        wasLoading = InState(csLoading);
        if (onGuarded)
            onGuarded(*this);
    }
    bool wasLoading = false;
    static inline std::function<void(Sample&)> onGuarded;

private:
    int guarded_ = 0;
};

void RegisterSampleClasses();

} // namespace vorn::test

namespace vorn {
template <>
const TPublishedClass& Published<test::Tile>();
template <>
const TPublishedClass& Published<test::Inner>();
template <>
const TPublishedClass& Published<test::Part>();
template <>
const TPublishedClass& Published<test::Entry>();
template <>
const TPublishedClass& Published<test::Sample>();
} // namespace vorn
