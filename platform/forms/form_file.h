#pragma once

#include "platform/system/component.h"
#include "platform/system/exceptions.h"
#include "platform/system/named_handler.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace vorn {

/// A form file that can't be read, or a form that can't be written as one. The message says where and names the
/// property, class, reference or value.
class EFormError : public Exception {
public:
    /// `line` counts from 1; 0 when a form is written.
    EFormError(int line, StringView message);
    int Line() const { return line_; }

private:
    int line_;
};

/// What an application offers to a form that is read: handlers for its events, and other forms to refer to.
class TFormOffers {
public:
    /// `Event` is the event's own type, such as TNotifyEvent. Raises EInvalidOperation if the name is taken.
    template <typename Event, typename Handler>
    void Offer(StringView name, Handler&& handler)
    {
        Add(TNamedHandler(name, Event(std::forward<Handler>(handler))));
    }
    /// The form's references may then name the components of `root` as "RootName.ComponentName".
    void OfferForm(TComponent& root) { forms_.push_back(&root); }

    /// By name, case aside; none if nothing of the name is offered.
    const TNamedHandler* Handler(StringView name) const;
    TComponent* Form(StringView name) const;

private:
    void Add(TNamedHandler handler);

    std::unordered_map<String, TNamedHandler> handlers_; // by folded name
    std::vector<TComponent*> forms_;
};

/// The form as text: `root`, its properties and the components that it owns, in ASCII and with LF at the line ends. The
/// same form gives the same text. Raises EFormError for what can't be read back, such as a class that isn't registered
/// or a reference to a component without a name.
String WriteForm(const TComponent& root);

/// Fills a component from a form file; its class must be the file's or derived from it.
///
/// The whole text is checked against the property tables before anything is made. Then all components are made and all
/// references looked up, then the properties are set in the order of the file, the root's own last, then in the same
/// order the references, then each component's Loaded is called, the root's last. Until then all of them are csLoading.
///
/// Raises EFormError, which quotes what a setter or Loaded raised. The components that were made are freed then. What
/// can't be undone: root properties that were set before one of them, a reference or a Loaded raised.
void ReadForm(StringView text, TComponent& root, const TFormOffers& offers = {});
/// The same with a root of the registered class that the file names.
std::unique_ptr<TComponent> MakeForm(StringView text, const TFormOffers& offers = {});

} // namespace vorn
