/* Objects: a handle, and the family that shares a thread. */
#include "native.h"

PyTypeObject* object_type;

void wait_for(struct family* family) {
    while (family->busy) {
        Py_BEGIN_ALLOW_THREADS PyThread_acquire_lock(family->lock, WAIT_LOCK);
        PyThread_release_lock(family->lock);
        Py_END_ALLOW_THREADS
    }
}

static struct family* new_family(void) {
    struct family* family = PyMem_Calloc(1, sizeof *family);
    if (family != NULL && (family->lock = PyThread_allocate_lock()) != NULL) return family;
    PyMem_Free(family);
    PyErr_NoMemory();
    return NULL;
}

static void leave_family(struct family* family) {
    if (family == NULL || --family->members > 0) return;
    PyThread_free_lock(family->lock);
    PyMem_Free(family);
}

void free_instance(PyObject* self) {
    PyTypeObject* type = Py_TYPE(self);
    ((freefunc)PyType_GetSlot(type, Py_tp_free))(self);
    Py_DECREF(type);
}

static void object_dealloc(PyObject* self) {
    Object* object = (Object*)self;
    zr_release(object->handle);
    leave_family(object->family);
    free_instance(self);
}

Object* as_object(PyObject* given) {
    if (PyObject_TypeCheck(given, object_type)) return (Object*)given;
    PyErr_SetString(PyExc_TypeError,
                    "a member of this package's classes needs one of their objects");
    return NULL;
}

static PyObject* new_object(PyTypeObject* type, zr_handle handle, struct family* family) {
    Object* object = (Object*)PyType_GenericAlloc(type, 0);
    if (object == NULL) {
        zr_release(handle);
        return NULL;
    }
    object->handle = handle;
    object->family = family;
    ++family->members;
    return (PyObject*)object;
}

PyObject* wrap(zr_handle handle, PyObject* name, struct family* family) {
    PyObject* type = name != NULL ? PyDict_GetItemWithError(known_types, name) : NULL;
    if (type == NULL) { /* one whose class depends on the call */
        zr_text asked;
        const zr_status status = zr_class_name(handle, &asked);
        PyObject* told = status == ZR_OK
                             ? PyUnicode_FromStringAndSize(asked.data, (Py_ssize_t)asked.size)
                             : refused(status);
        type = told != NULL ? PyDict_GetItemWithError(known_types, told) : NULL;
        Py_XDECREF(told);
    }
    if (type == NULL) {
        zr_release(handle);
        if (!PyErr_Occurred()) PyErr_SetString(PyExc_SystemError, "an object of an unknown class");
        return NULL;
    }
    if (PyType_IsSubtype((PyTypeObject*)type, object_type)) {
        return new_object((PyTypeObject*)type, handle, family);
    }
    return record_of(type, handle);
}

/* A class that hosts create says as what. */
static PyObject* object_new(PyTypeObject* type, PyObject* args, PyObject* kwargs) {
    PyObject* creates = PyObject_GetAttrString((PyObject*)type, "_creates");
    if (creates == NULL) {
        if (PyErr_ExceptionMatches(PyExc_AttributeError)) {
            PyErr_Clear();
            PyErr_Format(PyExc_TypeError, "%R is handed out by other objects, never created", type);
        }
        return NULL;
    }
    zr_handle handle = 0;
    const char* name = PyUnicode_AsUTF8AndSize(creates, NULL);
    const zr_status status = name != NULL ? zr_create(name, &handle) : ZR_UNKNOWN;
    Py_DECREF(creates);
    if (status != ZR_OK) return name != NULL ? refused(status) : NULL;
    if (PyTuple_Size(args) > 0 || kwargs != NULL) {
        zr_release(handle);
        PyErr_Format(PyExc_TypeError, "%R takes no arguments", type);
        return NULL;
    }
    struct family* family = new_family();
    if (family == NULL) {
        zr_release(handle);
        return NULL;
    }
    ++family->members;
    PyObject* made = new_object(type, handle, family);
    leave_family(family);
    return made;
}

static uint64_t identity(PyObject* self) {
    uint64_t number = 0;
    zr_identity(((Object*)self)->handle, &number);
    return number;
}

static PyObject* object_compare(PyObject* left, PyObject* right, int how) {
    if ((how != Py_EQ && how != Py_NE) || Py_TYPE(left) != Py_TYPE(right)) {
        Py_RETURN_NOTIMPLEMENTED;
    }
    return PyBool_FromLong((identity(left) == identity(right)) == (how == Py_EQ));
}

static Py_hash_t object_hash(PyObject* self) {
    const Py_hash_t hash = (Py_hash_t)identity(self);
    return hash == -1 ? -2 : hash;
}

bool add_objects(PyObject* module) {
    static PyType_Slot slots[] = {
        {Py_tp_doc, "An object of the component. Two are equal when they are the same object."},
        {Py_tp_new, object_new},
        {Py_tp_dealloc, object_dealloc},
        {Py_tp_richcompare, object_compare},
        {Py_tp_hash, object_hash},
        {0, NULL},
    };
    static PyType_Spec spec = {"zrcreditbureau._native.Object", sizeof(Object), 0,
                               Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE, slots};
    return add_type(module, &spec, &object_type);
}
