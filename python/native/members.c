/* Members as descriptors: a property that is read and written, an operation that is called with
 * the object first. */
#include "native.h"

enum { MOST_ARGUMENTS = 8 };

struct argument {
    PyObject* name;
    struct type type;
    int optional;
};

typedef struct {
    PyObject_HEAD PyObject* name; /* "Request.LastName" */
    int32_t id;
    int takes_time;
    struct type type;
    Py_ssize_t count;
    struct argument arguments[MOST_ARGUMENTS];
} Member;

static PyTypeObject* property_type;
static PyTypeObject* operation_type;

static bool read_argument(PyObject* row, struct argument* argument) {
    const char* kind;
    PyObject* of;
    if (!PyArg_ParseTuple(row, "UsOp", &argument->name, &kind, &of, &argument->optional)) {
        argument->name = NULL;
        return false;
    }
    Py_INCREF(argument->name);
    return read_type(kind, of, &argument->type);
}

static PyObject* member_new(PyTypeObject* type, PyObject* args, PyObject* kwargs) {
    PyObject *name, *of, *rows;
    const char* kind;
    int id, takes_time;
    if (kwargs != NULL || !PyArg_ParseTuple(args, "UisOpO!:member", &name, &id, &kind, &of,
                                            &takes_time, &PyTuple_Type, &rows)) {
        return NULL;
    }
    Member* member = (Member*)PyType_GenericAlloc(type, 0);
    if (member == NULL) return NULL;
    member->name = Py_NewRef(name);
    member->id = id;
    member->takes_time = takes_time;
    const Py_ssize_t count = PyTuple_Size(rows);
    bool read = read_type(kind, of, &member->type);
    if (read && count > MOST_ARGUMENTS) {
        PyErr_Format(PyExc_ValueError, "%U has too many arguments", name);
        read = false;
    }
    while (read && member->count < count) {
        PyObject* row = PyTuple_GetItem(rows, member->count);
        read = read_argument(row, &member->arguments[member->count++]);
    }
    if (!read) Py_CLEAR(member);
    return (PyObject*)member;
}

static void member_dealloc(PyObject* self) {
    Member* member = (Member*)self;
    Py_XDECREF(member->name);
    Py_XDECREF(member->type.of);
    for (Py_ssize_t i = 0; i < member->count; ++i) {
        Py_XDECREF(member->arguments[i].name);
        Py_XDECREF(member->arguments[i].type.of);
    }
    free_instance(self);
}

/* Runs it with the interpreter's lock released where it may take time, unless an argument is of
 * another family, which then nobody else may work with. */
static PyObject* run(const Member* member, Object* object, const zr_value* values, bool mixed) {
    struct family* family = object->family;
    zr_value result;
    zr_status status;
    if (member->takes_time && !mixed) {
        PyThread_acquire_lock(family->lock, WAIT_LOCK);
        family->busy = true;
        Py_BEGIN_ALLOW_THREADS status =
            zr_get(object->handle, member->id, values, (size_t)member->count, &result);
        Py_END_ALLOW_THREADS family->busy = false;
        PyThread_release_lock(family->lock);
    } else {
        status = zr_get(object->handle, member->id, values, (size_t)member->count, &result);
    }
    return status == ZR_OK ? to_python(&member->type, &result, family) : refused(status);
}

/* Waits for the families of what is given; true when there is one besides the object's own. */
static bool mixed_families(Object* object, PyObject* const* given, Py_ssize_t count) {
    bool mixed = false;
    bool waited = true;
    while (waited) {
        waited = object->family->busy;
        wait_for(object->family);
        for (Py_ssize_t i = 0; i < count; ++i) {
            if (given[i] == NULL || !PyObject_TypeCheck(given[i], object_type)) continue;
            struct family* other = ((Object*)given[i])->family;
            mixed = mixed || other != object->family;
            waited = waited || other->busy;
            wait_for(other);
        }
    }
    return mixed;
}

/* The arguments of a call in their places; NULL for those that are left out. */
static bool bind(const Member* member, PyObject* args, PyObject* kwargs, PyObject** given) {
    const Py_ssize_t positional = PyTuple_Size(args) - 1;
    if (positional > member->count) {
        PyErr_Format(PyExc_TypeError, "%U() takes %zd arguments but %zd were given", member->name,
                     member->count, positional);
        return false;
    }
    for (Py_ssize_t i = 0; i < member->count; ++i) {
        given[i] = i < positional ? PyTuple_GetItem(args, i + 1) : NULL;
    }
    PyObject *key, *value;
    for (Py_ssize_t at = 0; kwargs != NULL && PyDict_Next(kwargs, &at, &key, &value);) {
        Py_ssize_t i = 0;
        while (i < member->count && PyUnicode_Compare(member->arguments[i].name, key) != 0) ++i;
        if (i == member->count || given[i] != NULL) {
            PyErr_Format(PyExc_TypeError, "%U() got %s argument '%U'", member->name,
                         i == member->count ? "an unexpected" : "two values for the", key);
            return false;
        }
        given[i] = value;
    }
    for (Py_ssize_t i = 0; i < member->count; ++i) {
        if (given[i] == NULL && !member->arguments[i].optional) {
            PyErr_Format(PyExc_TypeError, "%U() is missing the argument '%U'", member->name,
                         member->arguments[i].name);
            return false;
        }
    }
    return true;
}

static bool convert(const Member* member, PyObject* const* given, zr_value* values) {
    for (Py_ssize_t i = 0; i < member->count; ++i) {
        const struct argument* argument = &member->arguments[i];
        values[i].type = ZR_EMPTY;
        if (given[i] != NULL &&
            !from_python(&argument->type, argument->name, given[i], &values[i])) {
            return false;
        }
    }
    return true;
}

static PyObject* operation_call(PyObject* self, PyObject* args, PyObject* kwargs) {
    const Member* member = (const Member*)self;
    PyObject* given[MOST_ARGUMENTS];
    zr_value values[MOST_ARGUMENTS];
    if (PyTuple_Size(args) < 1) {
        PyErr_Format(PyExc_TypeError, "%U() needs an object", member->name);
        return NULL;
    }
    Object* object = as_object(PyTuple_GetItem(args, 0));
    if (object == NULL || !bind(member, args, kwargs, given) || !convert(member, given, values)) {
        return NULL;
    }
    return run(member, object, values, mixed_families(object, given, member->count));
}

static PyObject* put(const Member* member, PyObject* self, PyObject* const* given,
                     PyObject* becomes) {
    zr_value values[MOST_ARGUMENTS + 1];
    Object* object = as_object(self);
    if (object == NULL || !convert(member, given, values) ||
        !from_python(&member->type, member->name, becomes, &values[member->count])) {
        return NULL;
    }
    mixed_families(object, &becomes, 1);
    const zr_status status = zr_put(object->handle, member->id, values, (size_t)member->count + 1);
    return status == ZR_OK ? Py_NewRef(Py_None) : refused(status);
}

/* put(object, argument..., value) */
static PyObject* operation_put(PyObject* self, PyObject* args) {
    const Member* member = (const Member*)self;
    PyObject* given[MOST_ARGUMENTS];
    if (PyTuple_Size(args) != member->count + 2) {
        PyErr_Format(PyExc_TypeError, "%U is written with an object, %zd arguments and a value",
                     member->name, member->count);
        return NULL;
    }
    for (Py_ssize_t i = 0; i < member->count; ++i) {
        given[i] = PyTuple_GetItem(args, i + 1);
    }
    return put(member, PyTuple_GetItem(args, 0), given, PyTuple_GetItem(args, member->count + 1));
}

static PyObject* operation_get(PyObject* self, PyObject* object, PyObject* type) {
    (void)type;
    static PyObject* method_type;
    if (object == NULL || object == Py_None) return Py_NewRef(self);
    if (method_type == NULL) {
        PyObject* types = PyImport_ImportModule("types");
        method_type = types != NULL ? PyObject_GetAttrString(types, "MethodType") : NULL;
        Py_XDECREF(types);
        if (method_type == NULL) return NULL;
    }
    return PyObject_CallFunctionObjArgs(method_type, self, object, NULL);
}

static PyObject* property_get(PyObject* self, PyObject* given, PyObject* type) {
    (void)type;
    if (given == NULL || given == Py_None) return Py_NewRef(self);
    Object* object = as_object(given);
    if (object == NULL) return NULL;
    wait_for(object->family);
    return run((const Member*)self, object, NULL, false);
}

static int property_set(PyObject* self, PyObject* object, PyObject* value) {
    if (value == NULL) {
        PyErr_Format(PyExc_AttributeError, "%U cannot be deleted", ((const Member*)self)->name);
        return -1;
    }
    PyObject* done = put((const Member*)self, object, NULL, value);
    Py_XDECREF(done);
    return done != NULL ? 0 : -1;
}

bool add_members(PyObject* module) {
    static PyMethodDef methods[] = {
        {"put", operation_put, METH_VARARGS, "put(object, argument..., value) writes it"},
        {NULL, NULL, 0, NULL},
    };
    static PyType_Slot property_slots[] = {
        {Py_tp_new, member_new},
        {Py_tp_dealloc, member_dealloc},
        {Py_tp_descr_get, property_get},
        {Py_tp_descr_set, property_set},
        {0, NULL},
    };
    static PyType_Slot operation_slots[] = {
        {Py_tp_new, member_new},          {Py_tp_dealloc, member_dealloc},
        {Py_tp_descr_get, operation_get}, {Py_tp_call, operation_call},
        {Py_tp_methods, methods},         {0, NULL},
    };
    static PyType_Spec property_spec = {"zrcreditbureau._native.Property", sizeof(Member), 0,
                                        Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE, property_slots};
    static PyType_Spec operation_spec = {
        "zrcreditbureau._native.Operation", sizeof(Member), 0,
        Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE | Py_TPFLAGS_METHOD_DESCRIPTOR, operation_slots};
    return add_type(module, &property_spec, &property_type) &&
           add_type(module, &operation_spec, &operation_type);
}
