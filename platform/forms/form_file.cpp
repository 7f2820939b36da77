#include "platform/forms/form_file.h"

#include "platform/system/strings.h"

namespace vorn {

EFormError::EFormError(int line, StringView message)
    : Exception(line > 0 ? u"Line " + IntToStr(line) + u": " + String(message) : String(message)), line_(line)
{
}

void TFormOffers::Add(TNamedHandler handler)
{
    const String name = handler.Name();
    if (!handlers_.try_emplace(FoldCase(name), std::move(handler)).second)
        throw EInvalidOperation(u"A handler named " + name + u" is offered already");
}

const TNamedHandler* TFormOffers::Handler(StringView name) const
{
    const auto place = handlers_.find(FoldCase(name));
    return place == handlers_.end() ? nullptr : &place->second;
}

TComponent* TFormOffers::Form(StringView name) const
{
    for (TComponent* form : forms_)
        if (SameText(form->Name(), name))
            return form;
    return nullptr;
}

} // namespace vorn
