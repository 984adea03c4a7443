#ifndef KORMAK_HANDLERSLOT_H
#define KORMAK_HANDLERSLOT_H

#include <QtGlobal>

#include <atomic>

namespace KORMAK {

/// \cond
/// Where a Parameter holds one of its handlers. A parameter uses one of eight: a handler is made when it is
/// first asked for, and until then costs a pointer. What nobody has asked for is shared by copies of the
/// parameter.
///
/// From lend() on, the handler has one address for the life of the slot. Several threads may use the const
/// functions of one slot at a time, as they may read one parameter.
template <class Handler>
class HandlerSlot {
public:
    HandlerSlot() noexcept = default;
    HandlerSlot(const HandlerSlot &other);
    /// Stores what \a other holds. A handler that was lent keeps its address.
    HandlerSlot &operator=(const HandlerSlot &other);
    HandlerSlot &operator=(const Handler &handler);
    ~HandlerSlot();

    /// The handler, for callers of the parameter, who may keep a reference to it.
    [[nodiscard]] Handler &lend();
    [[nodiscard]] const Handler &lend() const;

    /// The handler, for changes by the parameter itself, which keeps no reference.
    [[nodiscard]] Handler &edit();
    /// The handler, for a look by the parameter itself, which keeps no reference.
    [[nodiscard]] const Handler &look() const;

    /// Handler::Reset(), put off until the handler is needed.
    void reset();

private:
    struct Node;
    class State;

    [[nodiscard]] State state() const noexcept;
    void replace(State next);

    mutable std::atomic<quintptr> word{0}; // a State
};
/// \endcond

} // namespace KORMAK

#endif
