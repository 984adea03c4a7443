#ifndef KORMAK_TOOLS_LISTOF_H
#define KORMAK_TOOLS_LISTOF_H

#include <utility>

/// A list of Qt that holds \a items. Made of braces, Qt 6 does not notice when there is no memory for it.
template <class List, class... Items>
[[nodiscard]] List listOf(Items &&...items)
{
    List list;
    (list.push_back(std::forward<Items>(items)), ...);
    return list;
}

#endif
