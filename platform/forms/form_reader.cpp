#include "platform/forms/form_plan.h"

#include "platform/system/collection.h"
#include "platform/system/guards.h"
#include "platform/system/string_list.h"
#include "platform/system/strings.h"

#include <algorithm>

namespace vorn {

namespace forms {

namespace {

/// The components that a reader has made, in order. One that a handler frees meanwhile reads as none.
class Made : public TComponent {
public:
    ~Made() override { Destroying(); }

    void Add(TComponent* component)
    {
        items_.push_back(component);
        component->FreeNotification(this);
    }
    TComponent* operator[](std::size_t place) const { return items_[place]; }
    /// Leaves the components to their owner.
    void Release() { items_.clear(); }
    /// What lies on others goes before them, so each is still whole when the next one hears of it.
    void FreeAll()
    {
        while (!items_.empty()) {
            TComponent* const last = items_.back();
            if (last)
                delete last;
            items_.pop_back();
        }
    }

protected:
    void Notification(TComponent* component, TOperation operation) override
    {
        TComponent::Notification(component, operation);
        if (operation != TOperation::opRemove)
            return;
        if (const auto place = std::find(items_.rbegin(), items_.rend(), component); place != items_.rend())
            *place = nullptr;
    }

private:
    std::vector<TComponent*> items_;
};

/// References come after all else: what is set through one, such as the events that a component takes, holds whatever
/// the other's own lines say and wherever they stand.
enum class Pass { Values, References };

bool IsOf(Pass pass, TPropertyKind kind)
{
    return kind == TPropertyKind::pkCollection || (kind == TPropertyKind::pkComponent) == (pass == Pass::References);
}

String Describe(const PlannedObject& object)
{
    return object.Name.empty() ? u"a " + object.Class->Name() : object.Name;
}

class Reader {
public:
    Reader(const Plan& plan, TComponent& root, const TFormOffers& offers)
        : plan_(plan), root_(root), rootLives_(&root), offers_(offers)
    {
    }
    ~Reader() { made_.FreeAll(); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    void Read()
    {
        Create();
        for (const PlannedObject& object : plan_)
            CheckReferences(object.Properties);
        const ScopeExit ended([this] {
            if (rootLives_.Alive())
                root_.SetLoading(false);
        });
        root_.SetLoading(true); // and so whatever the root owns
        for (std::size_t i = 1; i < plan_.size(); ++i)
            Fill(i, Pass::Values);
        NameRoot();
        Fill(0, Pass::Values);
        for (std::size_t i = 1; i < plan_.size(); ++i)
            Fill(i, Pass::References);
        Fill(0, Pass::References);
        TellLoaded();
        made_.Release();
    }

private:
    TComponent& At(std::size_t place)
    {
        TComponent* const component = place == 0 ? (rootLives_.Alive() ? &root_ : nullptr) : made_[place - 1];
        if (!component)
            throw EFormError(plan_[place].Line, Describe(plan_[place]) + u" was freed while the form was read");
        return *component;
    }

    /// Runs what may call into a component; what it raises gets the line and the place.
    template <typename F>
    void Guarded(int line, const String& what, F action)
    {
        try {
            action();
        } catch (const EFormError&) {
            throw;
        } catch (const Exception& error) {
            throw EFormError(line, what + u": " + error.Message());
        } catch (const std::exception& error) {
            throw EFormError(line, what + u": " + FromUtf8(error.what()));
        }
    }

    void Create()
    {
        for (std::size_t i = 1; i < plan_.size(); ++i) {
            const PlannedObject& object = plan_[i];
            Guarded(object.Line, Describe(object), [&] {
                TComponent* const component = object.Class->Create(&At(0));
                made_.Add(component);
                component->SetLoading(true);
                component->SetName(object.Name);
                TComponent& below = At(static_cast<std::size_t>(object.Parent));
                if (object.Class->Placing().SetParent && NearestClass(below).Placing().Children)
                    object.Class->Placing().SetParent(*component, below);
            });
        }
    }

    /// A name of the form, of the root or of another form, and of what is owned below it.
    TComponent* Find(StringView path) const
    {
        const std::size_t dot = path.find(u'.');
        const StringView first = path.substr(0, dot);
        TComponent* found = root_.FindComponent(first);
        if (!found && SameText(first, plan_[0].Name.empty() ? root_.Name() : plan_[0].Name))
            found = &root_;
        if (!found)
            found = offers_.Form(first);
        for (std::size_t at = dot; found && at != StringView::npos;) {
            path.remove_prefix(at + 1);
            at = path.find(u'.');
            found = found->FindComponent(path.substr(0, at));
        }
        return found;
    }

    TPropertyValue Resolve(const PlannedProperty& planned) const
    {
        if (planned.Reference.empty())
            return {};
        TComponent* const component = Find(planned.Reference);
        if (!component)
            throw EFormError(planned.Line, planned.Path + u": there is no component named " + planned.Reference);
        const TPropertyValue value = static_cast<TPersistent*>(component);
        if (!planned.Property->Accepts(value))
            throw EFormError(planned.Line,
                planned.Path + u" takes a " + planned.Property->Class().Name() + u"; " + planned.Reference + u" is a "
                    + String(component->ClassName()));
        return value;
    }

    void CheckReferences(const std::vector<PlannedProperty>& properties) const
    {
        for (const PlannedProperty& planned : properties) {
            if (planned.Property->Kind == TPropertyKind::pkComponent)
                Resolve(planned);
            for (const PlannedItem& item : planned.Items)
                CheckReferences(item.Properties);
        }
    }

    void Fill(std::size_t place, Pass pass)
    {
        const PlannedObject& object = plan_[place];
        TComponent& component = At(place);
        const TLifeWatch watch(&component);
        for (const PlannedProperty& planned : object.Properties) {
            if (!IsOf(pass, planned.Property->Kind))
                continue;
            if (!watch.Alive())
                throw EFormError(planned.Line, Describe(object) + u" was freed while the form was read");
            Guarded(planned.Line, planned.Path + u" of " + Describe(object),
                [&] { SetProperty(component, planned, pass); });
        }
    }

    void SetProperty(TPersistent& object, const PlannedProperty& planned, Pass pass)
    {
        TPersistent* whole = &object;
        for (const TPublishedProperty* part : planned.Parts)
            whole = std::get<TPersistent*>(part->Get(*whole));
        const TPublishedProperty& property = *planned.Property;
        if (property.Kind == TPropertyKind::pkCollection) {
            SetItems(dynamic_cast<TCollection&>(*std::get<TPersistent*>(property.Get(*whole))), planned, pass);
        } else if (property.Kind == TPropertyKind::pkStrings) {
            auto& strings = dynamic_cast<TStrings&>(*std::get<TPersistent*>(property.Get(*whole)));
            strings.Clear();
            for (const String& line : planned.Lines)
                strings.Add(line);
        } else {
            property.Set(*whole, property.Kind == TPropertyKind::pkComponent ? Resolve(planned) : planned.Value);
        }
    }

    void SetItems(TCollection& collection, const PlannedProperty& planned, Pass pass)
    {
        if (pass == Pass::Values)
            collection.Clear();
        int place = 0;
        for (const PlannedItem& item : planned.Items) {
            TPersistent& made = pass == Pass::Values ? *collection.Add() : *collection.Items(place);
            for (const PlannedProperty& property : item.Properties)
                if (IsOf(pass, property.Property->Kind))
                    Guarded(property.Line, property.Path + u" of an item of " + planned.Path,
                        [&] { SetProperty(made, property, pass); });
            ++place;
        }
    }

    void NameRoot()
    {
        const PlannedObject& root = plan_[0];
        if (!root.Name.empty())
            Guarded(root.Line, Describe(root), [&] { At(0).SetName(root.Name); });
    }

    void TellLoaded()
    {
        for (std::size_t i = 1; i < plan_.size(); ++i)
            Guarded(plan_[i].Line, Describe(plan_[i]), [&] { At(i).Loaded(); });
        Guarded(plan_[0].Line, Describe(plan_[0]), [&] { At(0).Loaded(); });
        At(0);
    }

    const Plan& plan_;
    TComponent& root_;
    TLifeWatch rootLives_;
    const TFormOffers& offers_;
    Made made_;
};

} // namespace

} // namespace forms

void ReadForm(StringView text, TComponent& root, const TFormOffers& offers)
{
    const forms::Plan plan = forms::MakePlan(forms::Parse(text), &NearestClass(root), offers);
    forms::Reader(plan, root, offers).Read();
}

std::unique_ptr<TComponent> MakeForm(StringView text, const TFormOffers& offers)
{
    const forms::Plan plan = forms::MakePlan(forms::Parse(text), nullptr, offers);
    std::unique_ptr<TComponent> root(plan[0].Class->Create(nullptr));
    const TLifeWatch watch(root.get());
    const ScopeExit freed([&] {
        if (!watch.Alive())
            static_cast<void>(root.release()); // by a handler, which the reader has noticed
    });
    forms::Reader(plan, *root, offers).Read();
    return root;
}

} // namespace vorn
