/* The module. It is one a process: interpreters inside an interpreter cannot import it. */
#include "native.h"

bool add_type(PyObject* module, PyType_Spec* spec, PyTypeObject** type) {
    *type = (PyTypeObject*)PyType_FromSpec(spec);
    return *type != NULL && PyModule_AddType(module, *type) == 0;
}

static PyObject* describe(PyObject* module, PyObject* unused) {
    (void)module;
    (void)unused;
    const zr_text text = zr_describe();
    return PyUnicode_FromStringAndSize(text.data, (Py_ssize_t)text.size);
}

static PyObject* version(PyObject* module, PyObject* unused) {
    (void)module;
    (void)unused;
    const zr_text text = zr_version();
    return PyUnicode_FromStringAndSize(text.data, (Py_ssize_t)text.size);
}

PyMODINIT_FUNC PyInit__native(void) {
    static PyMethodDef functions[] = {
        {"describe", describe, METH_NOARGS, "the interface as JSON"},
        {"version", version, METH_NOARGS, "the component's version"},
        {NULL, NULL, 0, NULL},
    };
    static PyModuleDef definition = {PyModuleDef_HEAD_INIT,
                                     "zrcreditbureau._native",
                                     NULL,
                                     -1,
                                     functions,
                                     NULL,
                                     NULL,
                                     NULL,
                                     NULL};
    PyObject* module = PyModule_Create(&definition);
    if (module == NULL) return NULL;
    if (add_values(module) && add_objects(module) && add_members(module) && add_records(module)) {
        return module;
    }
    Py_DECREF(module);
    return NULL;
}
