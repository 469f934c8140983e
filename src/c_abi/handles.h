// The handles that stand for objects in other languages: numbers that are checked at every use.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>

#include "automation/object.h"

namespace zr::c_abi {

/// The objects that hosts hold, each in a slot with a count and a generation. A handle is the
/// slot's number and its generation: once the count is 0 the generation moves on, and the handle
/// stands for nothing. Slots are found and counted without a lock.
class Handles {
  public:
    using Handle = std::uint64_t;

    /// A handle with a count of 1. Throws std::bad_alloc when there is no room.
    Handle add(automation::Object object);

    /// False for a handle that stands for nothing, and where the count is at its end.
    bool retain(Handle handle);
    bool release(Handle handle);

    /// The object, held until the end of the call that asks for it, whatever other threads release.
    class Use {
      public:
        Use(Handles& handles, Handle handle)
            : handles_(handles), handle_(handle), object_(handles.retained(handle)) {}
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;
        ~Use() {
            if (object_ != nullptr) {
                handles_.release(handle_);
            }
        }
        explicit operator bool() const { return object_ != nullptr; }
        const automation::Object& operator*() const { return *object_; }

      private:
        Handles& handles_;
        const Handle handle_;
        const automation::Object* const object_;
    };

    static Handles& all();

  private:
    struct Slot {
        std::atomic<std::uint64_t> state{0};  ///< the generation, then the count, in 32 bits each
        automation::Object object;
        std::uint32_t next_free = 0;
    };
    static constexpr std::uint32_t kBlockSlots = 1U << 12;
    static constexpr std::uint32_t kBlocks = 1U << 12;

    Handles() = default;
    Slot* slot(Handle handle) const;
    const automation::Object* retained(Handle handle);
    /// A slot that nobody uses, by its number from 1; and one that nobody uses any more.
    std::uint32_t free_slot();
    void give_up(std::uint32_t number);

    /// Slots that a thread gave up and takes again, so that it needs no lock.
    struct Spare;
    static thread_local Spare spare_;

    std::array<std::atomic<Slot*>, kBlocks> blocks_{};
    std::mutex mutex_;  // of what follows
    std::uint32_t first_free_ = 0;
    std::uint32_t slots_ = 0;
};

}  // namespace zr::c_abi
