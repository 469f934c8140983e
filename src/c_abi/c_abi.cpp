// The functions of zrcreditbureau5.h.
#include <new>
#include <string>
#include <vector>

#include "automation/interface_json.h"
#include "automation/invoke.h"
#include "c_abi/handles.h"
#include "c_abi/table.h"
#include "c_abi/values.h"
#include "zrcreditbureau/zr_credit_bureau.h"
#include "zrcreditbureau5.h"

namespace zr::c_abi {
namespace {

using automation::InvocationError;
using automation::Member;
using automation::Misuse;
using automation::Object;
using automation::Variant;

/// What a thread's last function gave, for as long as its host may look at it.
struct LastCall {
    Variant result;
    std::int32_t number = 0;
    std::string source;
    std::string description;
};
thread_local LastCall last_call;

zr_text c_text(std::string_view text) { return {text.data(), text.size()}; }

struct StatusRow {
    Misuse misuse;
    zr_status status;
};
constexpr StatusRow kStatuses[] = {
    {Misuse::kUnknownClass, ZR_UNKNOWN},      {Misuse::kUnknownMember, ZR_UNKNOWN},
    {Misuse::kUnknownArgument, ZR_UNKNOWN},   {Misuse::kWrongType, ZR_BAD_TYPE},
    {Misuse::kOutOfRange, ZR_BAD_TYPE},       {Misuse::kWrongCount, ZR_BAD_COUNT},
    {Misuse::kArgumentMissing, ZR_BAD_COUNT}, {Misuse::kNotReadable, ZR_NOT_ALLOWED},
    {Misuse::kNotWritable, ZR_NOT_ALLOWED},
};

zr_status status_of(Misuse misuse) {
    for (const StatusRow& row : kStatuses) {
        if (row.misuse == misuse) {
            return row.status;
        }
    }
    return ZR_RAISED;
}

/// A fault of the call itself, before there is a member.
struct Fault {
    zr_status status;
    std::uint32_t number;
    const char* description;
};
constexpr Fault kBadHandle = {ZR_BAD_HANDLE, 0x80070006, "No object has this handle."};
constexpr Fault kNoCollection = {ZR_BAD_HANDLE, 0x80070006, "The object has no items."};
constexpr Fault kNoWalk = {ZR_BAD_HANDLE, 0x80070006, "The handle is not of a walk."};
constexpr Fault kBadPointer = {ZR_BAD_POINTER, 0x80004003, "A pointer is null."};
constexpr Fault kNoMemoryLeft = {ZR_NO_MEMORY, 0x8007000E, "Not enough memory."};

zr_status failed(zr_status status, std::int32_t number, std::string_view source,
                 std::string_view description) noexcept {
    try {
        last_call.number = number;
        last_call.source = source;
        last_call.description = description;
    } catch (const std::bad_alloc&) {
        last_call.source.clear();
        last_call.description.clear();
    }
    return status;
}

zr_status failed(const Fault& fault) noexcept {
    return failed(fault.status, error_number::from_hresult(fault.number), "", fault.description);
}

/// Runs what a function does; whatever it throws becomes its status.
template <class Work>
zr_status guarded(Work work) noexcept {
    try {
        return work();
    } catch (const Fault& fault) {
        return failed(fault);
    } catch (const InvocationError& error) {
        return failed(status_of(error.misuse()), error.number(), error.source(),
                      error.description());
    } catch (const PlatformError& error) {
        return failed(ZR_RAISED, error.number(), error.source(), error.description());
    } catch (const std::bad_alloc&) {
        return failed(kNoMemoryLeft);
    } catch (const std::exception& error) {
        return failed(ZR_RAISED, error_number::kUnexpected, "", error.what());
    } catch (...) {
        return failed(ZR_RAISED, error_number::kUnexpected, "", "Unexpected failure.");
    }
}

template <class... T>
void need(const T*... pointers) {
    const bool missing = (... || (pointers == nullptr));
    if (missing) {
        throw kBadPointer;
    }
}

/// Runs what a function does with an object.
template <class Work>
zr_status with_object(zr_handle handle, Work work) noexcept {
    return guarded([&] {
        const Handles::Use object(Handles::all(), handle);
        if (!object) {
            throw kBadHandle;
        }
        return work(*object);
    });
}

/// Gives what a member gave to the host, and keeps its text until the thread is given another. What
/// was kept may be an argument of this call.
void give(Variant value, zr_value* result) {
    if (result != nullptr) {
        last_call.result = std::move(value);
        *result = to_c(last_call.result);
    }
}

void need_items(const Object& object) {
    if (object.type().find(automation::kDefaultMemberId) == nullptr) {
        throw kNoCollection;
    }
}

void check_values(const zr_value* values, std::size_t count) {
    if (count > 0) {
        need(values);
    }
}

const Member& by_key(const Object& object, std::int32_t id) {
    return automation::member_of(object, id);
}
const Member& by_key(const Object& object, const char* name) {
    need(name);
    return automation::member_of(object, std::string_view(name));
}

/// The short way to a listed property: most of what hosts read.
void peek(const Object& object, const Member& member, zr_value* result) {
    Value value = member.peek(object.address(), member.property);
    if (std::string* const own = std::get_if<std::string>(&value)) {
        give(std::move(*own), result);
    } else if (result != nullptr) {
        *result = to_c(value, member.type.kind);
    }
}

template <class Key>
zr_status get(zr_handle handle, Key key, const zr_value* arguments, std::size_t count,
              zr_value* result) noexcept {
    return with_object(handle, [&](const Object& object) {
        const Member& member = by_key(object, key);
        if (member.peek != nullptr && count == 0) {
            peek(object, member, result);
            return ZR_OK;
        }
        check_values(arguments, count);
        if (member.item_at != nullptr && count == 1 && arguments->type == ZR_INT32) {
            give(object.part(*member.item_class, member.item_at(object, arguments->as.int32)),
                 result);
            return ZR_OK;
        }
        give(automation::read(object, member, Given({arguments, count})), result);
        return ZR_OK;
    });
}

template <class Key>
zr_status put(zr_handle handle, Key member, const zr_value* values, std::size_t count) noexcept {
    return with_object(handle, [&](const Object& object) {
        check_values(values, count);
        automation::write(object, by_key(object, member), Given({values, count}));
        return ZR_OK;
    });
}

template <class Key>
zr_status call(zr_handle handle, Key key, const zr_value* arguments, const char* const* names,
               std::size_t count, zr_value* result) noexcept {
    return with_object(handle, [&](const Object& object) {
        check_values(arguments, count);
        const Member& member = by_key(object, key);
        std::vector<std::string_view> named;
        for (std::size_t i = 0; names != nullptr && i < count; ++i) {
            if (names[i] != nullptr) {
                named.emplace_back(names[i]);
            } else if (!named.empty()) {
                throw InvocationError(Misuse::kWrongCount,
                                      "An argument without a name stands behind one with a name.");
            }
        }
        const Given given({arguments, count});
        give(automation::read(object, member, automation::in_their_places(member, given, named)),
             result);
        return ZR_OK;
    });
}

}  // namespace
}  // namespace zr::c_abi

using namespace zr::c_abi;

zr_text zr_version(void) {
    static const std::string kVersion = zr::ZRCreditBureau::Version();
    return c_text(kVersion);
}

zr_text zr_describe(void) {
    static const std::string kDescription = [] {
        zr::automation::JsonWriter json;
        zr::automation::write_interface(json);
        return std::string(json.view());
    }();
    return c_text(kDescription);
}

zr_status zr_create(const char* name, zr_handle* object) {
    return guarded([&] {
        need(name, object);
        *object = Handles::all().add(zr::automation::create(name));
        return ZR_OK;
    });
}

zr_status zr_retain(zr_handle object) {
    return guarded([&] { return Handles::all().retain(object) ? ZR_OK : throw kBadHandle; });
}

zr_status zr_release(zr_handle object) {
    return guarded(
        [&] { return object == 0 || Handles::all().release(object) ? ZR_OK : throw kBadHandle; });
}

zr_status zr_class_name(zr_handle object, zr_text* name) {
    return with_object(object, [&](const Object& of) {
        need(name);
        *name = c_text(of.type().name);
        return ZR_OK;
    });
}

zr_status zr_identity(zr_handle object, uint64_t* identity) {
    return with_object(object, [&](const Object& of) {
        need(identity);
        *identity = reinterpret_cast<std::uintptr_t>(of.address());
        return ZR_OK;
    });
}

zr_status zr_member_id(zr_handle object, const char* name, int32_t* id) {
    return with_object(object, [&](const Object& of) {
        need(name, id);
        *id = by_key(of, name).dispatch_id;
        return ZR_OK;
    });
}

zr_status zr_get(zr_handle object, int32_t id, const zr_value* arguments, size_t count,
                 zr_value* result) {
    return get(object, id, arguments, count, result);
}

zr_status zr_get_by_name(zr_handle object, const char* name, const zr_value* arguments,
                         size_t count, zr_value* result) {
    return get(object, name, arguments, count, result);
}

zr_status zr_put(zr_handle object, int32_t id, const zr_value* values, size_t count) {
    return put(object, id, values, count);
}

zr_status zr_put_by_name(zr_handle object, const char* name, const zr_value* values, size_t count) {
    return put(object, name, values, count);
}

zr_status zr_call(zr_handle object, int32_t id, const zr_value* arguments, const char* const* names,
                  size_t count, zr_value* result) {
    return call(object, id, arguments, names, count, result);
}

zr_status zr_call_by_name(zr_handle object, const char* name, const zr_value* arguments,
                          const char* const* names, size_t count, zr_value* result) {
    return call(object, name, arguments, names, count, result);
}

zr_status zr_enumerate(zr_handle collection, zr_handle* walk) {
    return with_object(collection, [&](const Object& items) {
        need(walk);
        need_items(items);
        *walk = Handles::all().add(zr::automation::walk_over(items));
        return ZR_OK;
    });
}

zr_status zr_next(zr_handle walk, zr_value* item) {
    return with_object(walk, [&](const Object& walking) {
        need(item);
        if (!zr::automation::is_walk(walking)) {
            throw kNoWalk;
        }
        Variant next;
        if (!walking.as<zr::automation::Walk>().next(next)) {
            return ZR_END;
        }
        give(std::move(next), item);
        return ZR_OK;
    });
}

zr_status zr_read_table(zr_handle collection, const int32_t* ids, size_t count, zr_handle* owner,
                        zr_table* table) {
    return with_object(collection, [&](const Object& items) {
        need(ids, owner, table);
        need_items(items);
        *owner = Handles::all().add(read_table(items, {ids, count}, *table));
        return ZR_OK;
    });
}

void zr_last_error(zr_error* error) {
    if (error != nullptr) {
        *error = {last_call.number, c_text(last_call.source), c_text(last_call.description)};
    }
}
