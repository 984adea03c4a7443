// Not installed. A constant that stays when the process ends: the destructors of a program's own objects may
// still need it when those of the libraries have run.
#ifndef TESSEL_NODESTRUCTOR_P_H
#define TESSEL_NODESTRUCTOR_P_H

#include <new>
#include <utility>

namespace TESSEL {

/// Holds a \a Value that is never destroyed.
template <class Value>
class NoDestructor {
public:
    template <class... Arguments>
    explicit NoDestructor(Arguments &&...arguments)
    {
        new (storage) Value(std::forward<Arguments>(arguments)...);
    }
    NoDestructor(const NoDestructor &) = delete;
    NoDestructor &operator=(const NoDestructor &) = delete;

    [[nodiscard]] const Value &operator*() const noexcept
    {
        return *std::launder(reinterpret_cast<const Value *>(storage));
    }

private:
    alignas(Value) unsigned char storage[sizeof(Value)];
};

} // namespace TESSEL

#endif
