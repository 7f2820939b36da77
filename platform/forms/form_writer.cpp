#include "platform/forms/form_file.h"

#include "platform/forms/form_syntax.h"
#include "platform/forms/form_values.h"
#include "platform/system/collection.h"
#include "platform/system/string_list.h"
#include "platform/system/strings.h"

namespace vorn {

namespace forms {

namespace {

String Describe(const TComponent& component)
{
    return component.Name().empty() ? u"a " + String(component.ClassName()) : component.Name();
}

class Writer {
public:
    explicit Writer(const TComponent& root) : root_(root) {}

    String Write()
    {
        CheckNames();
        Header(root_, NearestClass(root_), 0);
        Properties(root_, NearestClass(root_), u"", 1);
        Components();
        Line(0, u"end");
        return std::move(text_);
    }

private:
    void Line(int depth, StringView text)
    {
        text_.append(static_cast<std::size_t>(depth) * 2, u' ').append(text) += u'\n';
    }

    [[noreturn]] void Fail(StringView message) const { throw EFormError(0, message); }

    /// Whether a reference in the file that begins with this name would find the root or a component of the form.
    bool IsInForm(const String& name) const { return SameText(name, root_.Name()) || root_.FindComponent(name); }

    void CheckNames() const
    {
        if (root_.FindComponent(root_.Name()))
            Fail(u"the form and a component in it are both named " + root_.Name());
    }

    void Header(const TComponent& component, const TPublishedClass& type, int depth)
    {
        if (depth >= MaxDepth)
            Fail(u"objects lie in each other deeper than " + IntToStr(MaxDepth));
        if (!component.Name().empty() && !IsName(component.Name()))
            Fail(Quoted(component.Name()) + u" can't stand as a name in a form file");
        Line(depth, u"object " + (component.Name().empty() ? u"" : component.Name() + u": ") + type.Name());
    }

    /// What lies on the root comes in the order in which it lies there, then what lies on nothing.
    void Components()
    {
        Children(root_, NearestClass(root_), 1);
        for (int i = 0; i < root_.ComponentCount(); ++i) {
            const TComponent& component = *root_.Components(i);
            const TComponent* below = ParentOf(component);
            if (!below)
                Component(component, 1);
            else if (below != &root_ && below->Owner() != &root_)
                Fail(Describe(component) + u" lies on " + Describe(*below) + u", which isn't part of the form");
        }
    }

    static const TComponent* ParentOf(const TComponent& component)
    {
        const TPublishedClass& type = NearestClass(component);
        return type.Placing().Parent ? type.Placing().Parent(component) : nullptr;
    }

    void Children(const TComponent& component, const TPublishedClass& type, int depth)
    {
        if (!type.Placing().Children)
            return;
        for (const TComponent* child : type.Placing().Children(component))
            if (child->Owner() == &root_)
                Component(*child, depth);
    }

    void Component(const TComponent& component, int depth)
    {
        const TPublishedClass* type = ExactClass(component);
        if (!type || !type->CanCreate())
            Fail(u"the class " + String(component.ClassName()) + u" of " + Describe(component) + u" is not registered");
        Header(component, *type, depth);
        Properties(component, *type, u"", depth + 1);
        Children(component, *type, depth + 1);
        Line(depth, u"end");
    }

    void Properties(const TPersistent& object, const TPublishedClass& type, const String& prefix, int depth)
    {
        for (const TPublishedProperty& property : type.Properties())
            if (property.Stored != TStored::stNever)
                Property(object, property, prefix + property.Name, depth);
    }

    void Property(const TPersistent& object, const TPublishedProperty& property, const String& path, int depth)
    {
        const TPropertyValue value = property.Get(object);
        switch (property.Kind) {
        case TPropertyKind::pkObject:
            Properties(*std::get<TPersistent*>(value), property.Class(), path + u".", depth);
            break;
        case TPropertyKind::pkCollection:
            Items(dynamic_cast<const TCollection&>(*std::get<TPersistent*>(value)), property.Class(), path, depth);
            break;
        case TPropertyKind::pkStrings:
            Strings(dynamic_cast<const TStrings&>(*std::get<TPersistent*>(value)), path, depth);
            break;
        case TPropertyKind::pkComponent:
            if (TPersistent* const* target = std::get_if<TPersistent*>(&value))
                Line(depth, path + u" = " + PathTo(dynamic_cast<TComponent&>(**target), path));
            break;
        case TPropertyKind::pkEvent:
            if (const String* name = std::get_if<String>(&value))
                Line(depth, path + u" = " + Checked(*name, path));
            break;
        default:
            if (property.Stored == TStored::stAlways || value != property.Default)
                Line(depth, path + u" = " + ToFormText(value, property));
        }
    }

    void Strings(const TStrings& strings, const String& path, int depth)
    {
        if (strings.Count() == 0) {
            Line(depth, path + u" = ()");
            return;
        }
        Line(depth, path + u" = (");
        for (int i = 0; i < strings.Count(); ++i)
            Line(depth + 1, Quoted(strings[i]));
        Line(depth, u")");
    }

    void Items(const TCollection& collection, const TPublishedClass& type, const String& path, int depth)
    {
        if (depth > MaxDepth)
            Fail(path + u" lies deeper than " + IntToStr(MaxDepth));
        if (collection.Count() == 0) {
            Line(depth, path + u" = <>");
            return;
        }
        Line(depth, path + u" = <");
        for (int i = 0; i < collection.Count(); ++i) {
            Line(depth + 1, u"item");
            Properties(*collection.Items(i), type, u"", depth + 2);
            Line(depth + 1, u"end");
        }
        Line(depth, u">");
    }

    const String& Checked(const String& name, const String& path) const
    {
        if (!IsName(name) || SameText(name, NoReference))
            Fail(path + u": "
                + (name.empty() ? u"what it refers to has no name"
                                : Quoted(name) + u" can't stand as a name in a form file"));
        return name;
    }

    /// Names from the form down to the component; from the other form for one that isn't part of this one.
    String PathTo(const TComponent& component, const String& path) const
    {
        String names = Checked(component.Name(), path);
        const TComponent* first = &component;
        while (first != &root_ && first->Owner() && first->Owner() != &root_) {
            first = first->Owner();
            names = Checked(first->Name(), path) + u"." + names;
        }
        if (first != &root_ && !first->Owner() && IsInForm(first->Name()))
            Fail(path + u": " + names + u" isn't part of the form, which has a " + first->Name() + u" of its own");
        return names;
    }

    const TComponent& root_;
    String text_;
};

} // namespace

} // namespace forms

String WriteForm(const TComponent& root)
{
    return forms::Writer(root).Write();
}

} // namespace vorn
