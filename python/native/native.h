/* The extension behind the package: objects, members and values of the C interface as Python's.
 * Which classes there are it does not know; the package makes them of the library's description. */
#ifndef ZR_PYTHON_NATIVE_H
#define ZR_PYTHON_NATIVE_H

#define PY_SSIZE_T_CLEAN
#define Py_LIMITED_API 0x030b0000
#include <Python.h>
#include <stdbool.h>
#include <structmember.h>

#include "zrcreditbureau5.h"

/* The types of the description, in the order of the names in values.c. */
enum kind {
    KIND_NOTHING,
    KIND_TEXT,
    KIND_BOOLEAN,
    KIND_INT16,
    KIND_INT32,
    KIND_CURRENCY,
    KIND_DATE,
    KIND_DATE_OR_NULL,
    KIND_INDEX,
    KIND_OBJECT,
    KIND_ENUMERATION,
    KINDS
};

struct type {
    enum kind kind;
    PyObject* of; /* the name of the class or enumeration; NULL without one */
};

/* A facade and all that it has handed out: one thread at a time works with them. Counted and looked
 * at under the interpreter's lock. */
struct family {
    Py_ssize_t members;
    bool busy; /* a thread is in a call without the interpreter's lock, and holds `lock` */
    PyThread_type_lock lock;
};

typedef struct {
    PyObject_HEAD zr_handle handle;
    struct family* family;
} Object;

/* The classes and enumerations by name, filled by the package. */
extern PyObject* known_types;
extern PyTypeObject* object_type;
extern PyTypeObject* record_type;

/* Each gives false, with the exception set, where it fails. */
bool add_values(PyObject* module);
bool add_objects(PyObject* module);
bool add_members(PyObject* module);
bool add_records(PyObject* module);
bool add_type(PyObject* module, PyType_Spec* spec, PyTypeObject** type);

/* Sets the exception for what the library has just refused; NULL for the caller to return. */
PyObject* refused(zr_status status);

/* Reads the type's name; false for one that there is not. */
bool read_type(const char* kind, PyObject* of, struct type* type);

/* A Python value as one of the type; `what` is its name for messages. Texts stay the value's. */
bool from_python(const struct type* type, PyObject* what, PyObject* given, zr_value* value);

/* A value that the library gave, which is used up, as a Python value. */
PyObject* to_python(const struct type* type, const zr_value* value, struct family* family);

/* The Python object of a handle, which it takes over; `name` is its class, or NULL to ask for it.
 */
PyObject* wrap(zr_handle handle, PyObject* name, struct family* family);

/* The record that the object with this handle is; the handle is taken over. */
PyObject* record_of(PyObject* type, zr_handle handle);

/* Waits until no other thread works with the family. */
void wait_for(struct family* family);

/* The object, when it is one of ours; else NULL with the exception set. */
Object* as_object(PyObject* given);

/* Frees an instance of one of our types whose fields are let go. */
void free_instance(PyObject* self);

#endif
