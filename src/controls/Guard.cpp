#include "controls/Guard.h"

#include "controls/Boxes.h"
#include "platform/RuntimeError.h"

#include <optional>

void RunGuarded(const std::function<void()> &routine)
{
    std::optional<RuntimeError> untrapped;
    try {
        routine();
    } catch (const RuntimeError &error) {
        untrapped = error;
    }
    // Shown when the trap is left: the box runs an event loop of its own.
    if (untrapped)
        ExclamationBox(untrapped->Description());
}
