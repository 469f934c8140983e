/* The component for hosts of any language: the classes of its interface by name or number, as
 * handles, values and calls in C. One shared library, libzrcreditbureau5.so.5.
 *
 * What there is to call (classes, members with their numbers, arguments, what they mean)
 * zr_describe tells; docs/reference.md is made from the same description.
 *
 * Nothing here throws, and no argument makes the library crash but a pointer that does not point to
 * what it says: a handle that was released, or never was one, a wrong number, type or count is a
 * status. A facade and what it hands out serve one thread at a time; any number of them run side by
 * side, and handles may be made, counted and released by any thread. */
#ifndef ZRCREDITBUREAU5_H
#define ZRCREDITBUREAU5_H

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32) && defined(ZR_BUILDS_LIBRARY)
#define ZR_EXPORT __declspec(dllexport)
#elif defined(_WIN32)
#define ZR_EXPORT __declspec(dllimport)
#elif defined(__GNUC__)
#define ZR_EXPORT __attribute__((visibility("default")))
#else
#define ZR_EXPORT
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* An object that the host holds; 0 is none. What is held keeps the value it had, whatever becomes
 * of the object that handed it out. Each handle that a function gives is released once. */
typedef uint64_t zr_handle;

typedef enum zr_status {
    ZR_OK = 0,
    ZR_END = 1,         /* zr_next: there are no more items */
    ZR_BAD_HANDLE = 2,  /* no object has this handle, or it is of the wrong kind for the function */
    ZR_UNKNOWN = 3,     /* no class or member of this name or number */
    ZR_NOT_ALLOWED = 4, /* the property cannot be written, or not be read */
    ZR_BAD_COUNT = 5,   /* too few or too many arguments, or one that is named twice */
    ZR_BAD_TYPE = 6,    /* an argument of another type, or out of the type's range */
    ZR_BAD_POINTER = 7, /* a null pointer where something is needed */
    ZR_NO_MEMORY = 8,
    ZR_RAISED = 9 /* the component raised an error: zr_last_error has its number */
} zr_status;

typedef enum zr_type {
    ZR_EMPTY = 0,    /* an argument that is left out; the result of what gives none */
    ZR_NULL = 1,     /* no value: a date that is not known */
    ZR_BOOLEAN = 2,  /* as.boolean: 0 or 1 */
    ZR_INT16 = 3,    /* as.int16 */
    ZR_INT32 = 4,    /* as.int32 */
    ZR_DOUBLE = 5,   /* as.real: taken where a whole number or an amount is wanted, never given */
    ZR_CURRENCY = 6, /* as.currency: a count of ten-thousandths */
    ZR_DATE = 7,     /* as.date */
    ZR_TEXT = 8,     /* as.text: UTF-8, not ended by a zero */
    ZR_OBJECT = 9    /* as.object; 0 for none */
} zr_type;

/* A text. One that a function gives is valid until the next function of this header that the thread
 * calls returns: it may be an argument of that one. One that is passed in may hold zeros and needs
 * none behind it. */
typedef struct zr_text {
    const char* data;
    size_t size;
} zr_text;

/* A local date and time; all of the time is 0 where only a day is meant. */
typedef struct zr_date {
    int16_t year;
    uint8_t month;
    uint8_t day;
    uint8_t hour;
    uint8_t minute;
    uint8_t second;
} zr_date;

typedef struct zr_value {
    int32_t type; /* a zr_type */
    union {
        int32_t boolean;
        int16_t int16;
        int32_t int32;
        double real;
        int64_t currency;
        zr_date date;
        zr_text text;
        zr_handle object;
    } as;
} zr_value;

/* Why the last function that this thread called did not give ZR_OK. */
typedef struct zr_error {
    int32_t number;      /* as the platform numbers errors: 5 for an item that is not there */
    zr_text source;      /* what raised it; may be empty */
    zr_text description; /* one sentence for people; no value that was passed in is part of it */
} zr_error;

/* Chosen members of all items of a collection, as text: value `column` of item `row` (both from 0)
 * is bytes[offsets[row * columns + column]] up to the next offset. Booleans are "true" and "false",
 * amounts have four decimals, dates stand as yyyy-mm-dd, with Thh:mm:ss where there is a time. */
typedef struct zr_table {
    size_t rows;
    size_t columns;
    const size_t* offsets; /* rows * columns + 1 of them */
    const char* bytes;
} zr_table;

/* The component's version, "5.0.0". */
ZR_EXPORT zr_text zr_version(void);

/* The whole interface as JSON: classes, members, arguments, enumerations. */
ZR_EXPORT zr_text zr_describe(void);

/* Makes an object of a class that hosts create: "ZRCreditBureau5.ZRCreditBureau" (or
 * "ZRCreditBureau" alone), "ZRCreditBureau5.ZRXMLBuilder", "ZRCreditBureau5.ZRStringBuilder". */
ZR_EXPORT zr_status zr_create(const char* name, zr_handle* object);

/* Holds an object once more: it takes one more zr_release to let it go. */
ZR_EXPORT zr_status zr_retain(zr_handle object);

/* Lets an object go. 0 is no error. */
ZR_EXPORT zr_status zr_release(zr_handle object);

/* The class of an object, "ServiceVedaXMLAU". */
ZR_EXPORT zr_status zr_class_name(zr_handle object, zr_text* name);

/* A number that the handles of one object share, and no other object of its class has while it is
 * held: whether two handles are of the same object, and what to hash one by. */
ZR_EXPORT zr_status zr_identity(zr_handle object, uint64_t* identity);

/* The number of a member of the object's class, by its name in any letter case. */
ZR_EXPORT zr_status zr_member_id(zr_handle object, const char* name, int32_t* id);

/* Reads a property, or runs an operation, with `count` arguments. A ZR_EMPTY argument stands for
 * its default. An object in `result` is the caller's to release. `arguments` may be null when
 * `count` is 0, and `result` when it is not wanted. */
ZR_EXPORT zr_status zr_get(zr_handle object, int32_t id, const zr_value* arguments, size_t count,
                           zr_value* result);
ZR_EXPORT zr_status zr_get_by_name(zr_handle object, const char* name, const zr_value* arguments,
                                   size_t count, zr_value* result);

/* Writes a property: the last of the values is what it becomes, those before it are arguments. */
ZR_EXPORT zr_status zr_put(zr_handle object, int32_t id, const zr_value* values, size_t count);
ZR_EXPORT zr_status zr_put_by_name(zr_handle object, const char* name, const zr_value* values,
                                   size_t count);

/* As zr_get; arguments from the first that has a name (in any letter case) are told by it. `names`
 * may be null, and so may each of its `count` pointers. */
ZR_EXPORT zr_status zr_call(zr_handle object, int32_t id, const zr_value* arguments,
                            const char* const* names, size_t count, zr_value* result);
ZR_EXPORT zr_status zr_call_by_name(zr_handle object, const char* name, const zr_value* arguments,
                                    const char* const* names, size_t count, zr_value* result);

/* Walks over a collection: a walk begins before the first item, zr_next gives one after another. */
ZR_EXPORT zr_status zr_enumerate(zr_handle collection, zr_handle* walk);
ZR_EXPORT zr_status zr_next(zr_handle walk, zr_value* item);

/* Reads the members with these numbers of every item at once. The table is valid until `owner` is
 * released. */
ZR_EXPORT zr_status zr_read_table(zr_handle collection, const int32_t* ids, size_t count,
                                  zr_handle* owner, zr_table* table);

/* The reason of this thread's last status other than ZR_OK and ZR_END. The one function that
 * leaves the texts of the function before it as they are. */
ZR_EXPORT void zr_last_error(zr_error* error);

#ifdef __cplusplus
}
#endif

#endif
