/// @file
/// The barrier between signals and modules: a run-time error that nothing trapped ends its routine, is shown by its
/// plain description, and the program goes on.
#pragma once

#include <QObject>

#include <cstddef>
#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>

/// Runs a routine; an untrapped RuntimeError is shown in an exclamation box titled "Ostrakon".
void RunGuarded(const std::function<void()> &routine);

/// Connects a signal to a routine through the barrier. The routine takes the signal's arguments, or the first of them.
template <typename Sender, typename Signal, typename Routine>
QMetaObject::Connection ConnectGuarded(const Sender *sender, Signal signal, const QObject *context, Routine routine);

// The signal's own arguments are handed on by reference, so that a key can be swallowed and a close refused.
namespace GuardDetail {
template <typename Routine, typename Arguments, std::size_t... Index>
constexpr bool TakesFirst(std::index_sequence<Index...>)
{
    return std::is_invocable_v<const Routine &, std::tuple_element_t<Index, Arguments>...>;
}

// Calls the routine with as many of the first arguments as it takes.
template <std::size_t Count, typename Routine, typename Arguments>
void CallWithFirst(const Routine &routine, Arguments &arguments)
{
    if constexpr (Count == 0 || TakesFirst<Routine, Arguments>(std::make_index_sequence<Count>())) {
        [&]<std::size_t... Index>(std::index_sequence<Index...>)
        {
            routine(static_cast<std::tuple_element_t<Index, Arguments>>(std::get<Index>(arguments))...);
        }
        (std::make_index_sequence<Count>());
    } else {
        CallWithFirst<Count - 1>(routine, arguments);
    }
}

template <typename Class, typename... Arguments>
struct Slot {
    template <typename Routine>
    static auto Make(Routine routine)
    {
        return [routine = std::move(routine)](Arguments... arguments) {
            std::tuple<Arguments...> all(static_cast<Arguments>(arguments)...);
            RunGuarded([&] { CallWithFirst<sizeof...(Arguments)>(routine, all); });
        };
    }
};

template <typename Class, typename... Arguments>
Slot<Class, Arguments...> SlotOf(void (Class::*)(Arguments...));
template <typename Class, typename... Arguments>
Slot<Class, Arguments...> SlotOf(void (Class::*)(Arguments...) const);
} // namespace GuardDetail

template <typename Sender, typename Signal, typename Routine>
QMetaObject::Connection ConnectGuarded(const Sender *sender, Signal signal, const QObject *context, Routine routine)
{
    return QObject::connect(sender, signal, context, decltype(GuardDetail::SlotOf(signal))::Make(std::move(routine)));
}
