// Counts what malloc gives. Programs with Allocations.cpp have its malloc and all its kin in place of the C
// library's, so that blocks that Qt takes are counted, too.
#ifndef BENCHMARKS_ALLOCATIONS_H
#define BENCHMARKS_ALLOCATIONS_H

namespace Allocations {

struct Counts {
    long long taken = 0; ///< calls that gave a block, a new one or one that was made larger or smaller
    long long held = 0; ///< blocks that have not been given back
    long long bytes = 0; ///< usable bytes of the blocks held: what was asked for, rounded up by malloc
};

/// Of the thread that asks.
[[nodiscard]] Counts now();

} // namespace Allocations

#endif
