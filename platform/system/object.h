#pragma once

#include "platform/system/event.h"
#include "platform/system/types.h"

namespace vorn {

class TObject;

/// Tells code that calls out to handlers whether an object of its has been freed meanwhile. Lives on the stack.
class TLifeWatch {
public:
    explicit TLifeWatch(const TObject* object) : object_(object), below_(top_) { top_ = this; }
    ~TLifeWatch()
    {
        TLifeWatch** place = &top_; // the top one, unless guards ended out of turn
        while (*place != this)
            place = &(*place)->below_;
        *place = below_;
    }
    TLifeWatch(const TLifeWatch&) = delete;
    TLifeWatch& operator=(const TLifeWatch&) = delete;

    bool Alive() const { return object_ != nullptr; }

private:
    friend class TObject;
    static void Gone(const TObject* object)
    {
        for (TLifeWatch* watch = top_; watch; watch = watch->below_)
            if (watch->object_ == object)
                watch->object_ = nullptr;
    }

    static inline TLifeWatch* top_ = nullptr; // everything runs on the user-interface thread
    const TObject* object_;
    TLifeWatch* below_;
};

/// Root of the classes whose objects are handed round as `Sender`. Objects have identity and aren't copied.
class TObject {
public:
    TObject() = default;
    virtual ~TObject() { TLifeWatch::Gone(this); }
    /// The name of the object's class without its namespaces. Lives as long as the process.
    virtual StringView ClassName() const;
    TObject(const TObject&) = delete;
    TObject& operator=(const TObject&) = delete;
};

/// An object whose state can be assigned from another.
class TPersistent : public TObject {
public:
    /// Copies what `source` knows how to give. Raises EConvertError when the two don't fit.
    virtual void Assign(const TPersistent& source);

protected:
    /// The source's side of Assign; the base refuses with EConvertError.
    virtual void AssignTo(TPersistent& dest) const;
};

} // namespace vorn
