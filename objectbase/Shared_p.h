// Not installed. Constants that all objects share: copies of a text or a list refer to the same characters,
// which they keep alive. shared([] { return ...; }) gives what the function makes, the same at every call.
#ifndef TESSEL_SHARED_P_H
#define TESSEL_SHARED_P_H

#include <QString>
#include <QStringView>

namespace TESSEL {

/// \a make must be a lambda without captures. The constant is made when it is first asked for, before main()
/// if need be. Objects that outlive it, as those with static storage in a program may, get one each. It is
/// released when the library is unloaded; what has to stay is NoDestructor instead.
template <class Make>
[[nodiscard]] auto shared(Make make)
{
    static bool isGone = false;
    static const struct Constant {
        decltype(make()) value;
        ~Constant() { isGone = true; }
    } constant{make()};
    return isGone ? make() : constant.value;
}

} // namespace TESSEL

#endif
