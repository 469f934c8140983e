#include "c_abi/handles.h"

#include <new>
#include <random>
#include <utility>

namespace zr::c_abi {
namespace {

constexpr std::uint64_t kCount = 0xFFFFFFFFU;

constexpr std::uint32_t number_of(Handles::Handle handle) {
    return static_cast<std::uint32_t>(handle);
}
constexpr std::uint64_t generation_of(std::uint64_t value) { return value >> 32U; }
constexpr std::uint64_t joined(std::uint64_t generation, std::uint64_t low) {
    return (generation << 32U) | low;
}

/// So that a number that never was a handle seldom is one.
std::uint64_t first_generation() {
    static const std::uint64_t kFirst = std::random_device()() | 1U;
    return kFirst & kCount;
}

}  // namespace

Handles& Handles::all() {
    // Never destroyed: hosts release from their own ends.
    static auto* const kHandles = new Handles();
    return *kHandles;
}

Handles::Slot* Handles::slot(Handle handle) const {
    const std::uint32_t index = number_of(handle) - 1;
    if (index / kBlockSlots >= kBlocks) {
        return nullptr;
    }
    Slot* const block = blocks_[index / kBlockSlots].load(std::memory_order_acquire);
    return block == nullptr ? nullptr : &block[index % kBlockSlots];
}

struct Handles::Spare {
    std::array<std::uint32_t, 32> numbers;
    std::size_t count = 0;
    bool ended = false;

    /// What the thread leaves serves the others; what it gives up after this goes to them at once.
    ~Spare() {
        ended = true;
        while (count > 0) {
            all().give_up(numbers[--count]);
        }
    }
};
thread_local Handles::Spare Handles::spare_;

void Handles::give_up(std::uint32_t number) {
    if (!spare_.ended && spare_.count < spare_.numbers.size()) {
        spare_.numbers[spare_.count++] = number;
        return;
    }
    const std::lock_guard lock(mutex_);
    slot(number)->next_free = std::exchange(first_free_, number);
}

std::uint32_t Handles::free_slot() {
    if (!spare_.ended && spare_.count > 0) {
        return spare_.numbers[--spare_.count];
    }
    const std::lock_guard lock(mutex_);
    if (first_free_ != 0) {
        const std::uint32_t number = first_free_;
        first_free_ = slot(number)->next_free;
        return number;
    }
    if (slots_ == kBlocks * kBlockSlots) {
        throw std::bad_alloc();
    }
    if (slots_ % kBlockSlots == 0) {
        blocks_[slots_ / kBlockSlots].store(new Slot[kBlockSlots], std::memory_order_release);
    }
    const std::uint32_t number = ++slots_;
    slot(number)->state.store(joined(first_generation(), 0), std::memory_order_relaxed);
    return number;
}

Handles::Handle Handles::add(automation::Object object) {
    const std::uint32_t number = free_slot();
    Slot& free = *slot(number);
    free.object = std::move(object);
    const std::uint64_t generation = generation_of(free.state.load(std::memory_order_relaxed));
    free.state.store(joined(generation, 1), std::memory_order_release);
    return joined(generation, number);
}

const automation::Object* Handles::retained(Handle handle) {
    Slot* const found = slot(handle);
    if (found == nullptr) {
        return nullptr;
    }
    std::uint64_t state = found->state.load(std::memory_order_acquire);
    do {
        if (generation_of(state) != generation_of(handle) || (state & kCount) == 0 ||
            (state & kCount) == kCount) {
            return nullptr;
        }
    } while (!found->state.compare_exchange_weak(state, state + 1, std::memory_order_acquire));
    return &found->object;
}

bool Handles::retain(Handle handle) { return retained(handle) != nullptr; }

bool Handles::release(Handle handle) {
    Slot* const found = slot(handle);
    if (found == nullptr) {
        return false;
    }
    std::uint64_t state = found->state.load(std::memory_order_acquire);
    do {
        if (generation_of(state) != generation_of(handle) || (state & kCount) == 0) {
            return false;
        }
    } while (!found->state.compare_exchange_weak(state, state - 1, std::memory_order_acq_rel));
    if ((state & kCount) == 1) {
        // Nobody finds the slot any more, and whoever did has let it go.
        const automation::Object last = std::exchange(found->object, {});
        const std::uint64_t next = (generation_of(handle) + 1) & kCount;
        found->state.store(joined(next == 0 ? 1 : next, 0), std::memory_order_release);
        give_up(number_of(handle));
    }
    return true;
}

}  // namespace zr::c_abi
