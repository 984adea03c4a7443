// Not installed. How a HandlerSlot works. It refers to a node with the handler, or to none as long as the
// handler is as a new one. Slots of several parameters may refer to one node until someone asks for the
// handler: who does gets a node of its own, which is called lent and never shared or replaced from then on.
#ifndef KORMAK_HANDLERSLOT_P_H
#define KORMAK_HANDLERSLOT_P_H

#include <kormak/HandlerSlot.h>

#include <utility>

namespace KORMAK {

template <class Handler>
struct HandlerSlot<Handler>::Node {
    explicit Node(const Handler &from = Handler()) : handler(from) { }

    void acquire() noexcept { users.fetch_add(1, std::memory_order_relaxed); }
    void release() noexcept
    {
        if (users.fetch_sub(1, std::memory_order_acq_rel) > 1)
            return;
        if (origin)
            origin->release();
        delete this;
    }
    [[nodiscard]] bool isShared() const noexcept { return users.load(std::memory_order_acquire) > 1; }

    std::atomic<int> users{1};
    Node *origin = nullptr; // what it was copied from, kept for other threads that still look at it
    Handler handler;
};

/// The node of a slot, and in the lowest bits of its address how the slot uses it.
template <class Handler>
class HandlerSlot<Handler>::State {
public:
    enum Use : quintptr {
        Kept = 0,
        Lent = 1,
        ResetPending = 2, ///< the handler of the slot is that of the node after a Reset()
    };

    explicit State(quintptr stored) noexcept : word(stored) { }
    State(Node *node, Use use) noexcept : word(reinterpret_cast<quintptr>(node) | use) { }

    [[nodiscard]] Node *node() const noexcept { return reinterpret_cast<Node *>(word & ~UseMask); }
    [[nodiscard]] bool isLent() const noexcept { return (word & Lent) != 0; }
    [[nodiscard]] bool isResetPending() const noexcept { return (word & ResetPending) != 0; }
    [[nodiscard]] quintptr stored() const noexcept { return word; }

    /// A new node with what the slot holds.
    [[nodiscard]] Node *copy() const
    {
        Node *made = node() ? new Node(node()->handler) : new Node;
        if (isResetPending())
            made->handler.Reset();
        return made;
    }

private:
    static constexpr quintptr UseMask = 3;
    static_assert(alignof(Node) > UseMask);

    quintptr word;
};

template <class Handler>
typename HandlerSlot<Handler>::State HandlerSlot<Handler>::state() const noexcept
{
    return State(word.load(std::memory_order_acquire));
}

/// Only for functions that are not const: no other thread uses the slot then.
template <class Handler>
void HandlerSlot<Handler>::replace(State next)
{
    Node *previous = state().node();
    word.store(next.stored(), std::memory_order_release);
    if (previous)
        previous->release();
}

template <class Handler>
HandlerSlot<Handler>::HandlerSlot(const HandlerSlot &other)
{
    State shared = other.state();
    if (shared.isLent())
        shared = State(shared.copy(), State::Kept);
    else if (shared.node())
        shared.node()->acquire();
    word.store(shared.stored(), std::memory_order_relaxed);
}

template <class Handler>
HandlerSlot<Handler> &HandlerSlot<Handler>::operator=(const HandlerSlot &other)
{
    if (state().isLent() && (other.state().node() == nullptr || other.state().isResetPending())) {
        // The handler of the other slot is not made for this.
        Node *made = other.state().copy();
        state().node()->handler = std::as_const(made->handler);
        made->release();
    } else if (state().isLent()) {
        state().node()->handler = std::as_const(other.state().node()->handler);
    } else if (this != &other) {
        HandlerSlot copy(other);
        word.store(copy.word.exchange(word.load(std::memory_order_relaxed), std::memory_order_relaxed),
                   std::memory_order_release);
    }
    return *this;
}

template <class Handler>
HandlerSlot<Handler> &HandlerSlot<Handler>::operator=(const Handler &handler)
{
    const State current = state();
    if (current.isLent())
        current.node()->handler = handler;
    else
        replace(State(new Node(handler), State::Kept));
    return *this;
}

template <class Handler>
HandlerSlot<Handler>::~HandlerSlot()
{
    if (Node *node = state().node())
        node->release();
}

template <class Handler>
Handler &HandlerSlot<Handler>::lend()
{
    // As the const form, and not in place: callers that only read may use this one, too, several at a time.
    return const_cast<Handler &>(std::as_const(*this).lend());
}

template <class Handler>
const Handler &HandlerSlot<Handler>::lend() const
{
    State current = state();
    if (current.isLent())
        return current.node()->handler;
    Node *made = current.copy();
    made->origin = current.node(); // takes over its use by this slot
    quintptr expected = current.stored();
    if (word.compare_exchange_strong(expected, State(made, State::Lent).stored(), std::memory_order_acq_rel))
        return made->handler;
    made->origin = nullptr;
    made->release();
    return State(expected).node()->handler; // another thread was faster
}

template <class Handler>
Handler &HandlerSlot<Handler>::edit()
{
    const State current = state();
    Node *node = current.node();
    if (node && current.isResetPending() && !node->isShared()) {
        node->handler.Reset();
        word.store(State(node, State::Kept).stored(), std::memory_order_release);
    } else if (!node || node->isShared()) {
        node = current.copy();
        replace(State(node, State::Kept));
    }
    return node->handler;
}

template <class Handler>
const Handler &HandlerSlot<Handler>::look() const
{
    const State current = state();
    return current.node() && !current.isResetPending() ? current.node()->handler : lend();
}

template <class Handler>
void HandlerSlot<Handler>::reset()
{
    const State current = state();
    if (current.isLent())
        current.node()->handler.Reset();
    else if (current.node())
        word.store(State(current.node(), State::ResetPending).stored(), std::memory_order_release);
}

} // namespace KORMAK

#endif
