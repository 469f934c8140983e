/* Records: the items of a collection that have nothing but texts, which are read all at once. */
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "native.h"

enum { REMEMBERED = 512 }; /* a power of two */

typedef struct {
    PyObject_VAR_HEAD PyObject* values[];
} Record;

/* A text that the table had before. */
struct remembered {
    const char* data;
    size_t size;
    PyObject* text;
};

typedef struct {
    PyObject_HEAD zr_handle owner;
    zr_table table;
    size_t row;
    PyTypeObject* type; /* the items' class; NULL for tuples */
    struct remembered remembered[REMEMBERED];
} Records;

PyTypeObject* record_type;
static PyTypeObject* records_type;

static void record_dealloc(PyObject* self) {
    Record* record = (Record*)self;
    PyTypeObject* type = Py_TYPE(self);
    for (Py_ssize_t i = Py_SIZE(self); i-- > 0;) {
        Py_XDECREF(record->values[i]);
    }
    PyObject_Free(self);
    Py_DECREF(type);
}

/* Records are values: equal when all their texts are. */
static PyObject* record_tuple(PyObject* self) {
    PyObject* tuple = PyTuple_New(Py_SIZE(self));
    for (Py_ssize_t i = 0; tuple != NULL && i < Py_SIZE(self); ++i) {
        PyTuple_SetItem(tuple, i, Py_NewRef(((Record*)self)->values[i]));
    }
    return tuple;
}

static PyObject* record_compare(PyObject* left, PyObject* right, int how) {
    if ((how != Py_EQ && how != Py_NE) || Py_TYPE(left) != Py_TYPE(right)) {
        Py_RETURN_NOTIMPLEMENTED;
    }
    PyObject* of_left = record_tuple(left);
    PyObject* of_right = record_tuple(right);
    PyObject* result =
        of_left != NULL && of_right != NULL ? PyObject_RichCompare(of_left, of_right, how) : NULL;
    Py_XDECREF(of_left);
    Py_XDECREF(of_right);
    return result;
}

static Py_hash_t record_hash(PyObject* self) {
    PyObject* tuple = record_tuple(self);
    const Py_hash_t hash = tuple != NULL ? PyObject_Hash(tuple) : -1;
    Py_XDECREF(tuple);
    return hash;
}

static PyObject* new_record(PyTypeObject* type, Py_ssize_t columns) {
    return PyType_GenericAlloc(type, columns);
}

/* The class of records with these members, each of them (name, id, meaning). */
static PyObject* new_record_class(PyObject* module, PyObject* args) {
    const char *name, *doc;
    PyObject* rows;
    (void)module;
    if (!PyArg_ParseTuple(args, "ssO!:record_class", &name, &doc, &PyTuple_Type, &rows))
        return NULL;
    const Py_ssize_t count = PyTuple_Size(rows);
    PyMemberDef* members = PyMem_Calloc((size_t)count + 1, sizeof *members);
    if (members == NULL) return PyErr_NoMemory();
    bool read = true;
    for (Py_ssize_t i = 0; read && i < count; ++i) {
        PyMemberDef* member = &members[i];
        int id;
        member->type = T_OBJECT_EX;
        member->flags = READONLY;
        member->offset = (Py_ssize_t)(offsetof(Record, values) + (size_t)i * sizeof(PyObject*));
        read = PyArg_ParseTuple(PyTuple_GetItem(rows, i), "sis", &member->name, &id, &member->doc);
    }
    PyType_Slot slots[] = {
        {Py_tp_doc, (void*)doc},
        {Py_tp_members, members},
        {0, NULL},
    };
    PyType_Spec spec = {name, (int)offsetof(Record, values), sizeof(PyObject*),
                        Py_TPFLAGS_DEFAULT | Py_TPFLAGS_DISALLOW_INSTANTIATION, slots};
    PyObject* base = read ? PyTuple_Pack(1, record_type) : NULL;
    PyObject* type = base != NULL ? PyType_FromSpecWithBases(&spec, base) : NULL;
    Py_XDECREF(base);
    PyMem_Free(members);
    /* The class has the texts of the rows for as long as it lives. */
    if (type != NULL && PyObject_SetAttrString(type, "_members", rows) < 0) Py_CLEAR(type);
    return type;
}

PyObject* record_of(PyObject* type, zr_handle handle) {
    static const struct type text = {KIND_TEXT, NULL};
    PyObject* rows = PyObject_GetAttrString(type, "_members");
    PyObject* record = rows != NULL ? new_record((PyTypeObject*)type, PyTuple_Size(rows)) : NULL;
    for (Py_ssize_t i = 0; record != NULL && i < PyTuple_Size(rows); ++i) {
        zr_value value;
        const int id = (int)PyLong_AsLong(PyTuple_GetItem(PyTuple_GetItem(rows, i), 1));
        const zr_status status = zr_get(handle, id, NULL, 0, &value);
        PyObject* read = status == ZR_OK ? to_python(&text, &value, NULL) : refused(status);
        ((Record*)record)->values[i] = read;
        if (read == NULL) Py_CLEAR(record);
    }
    Py_XDECREF(rows);
    zr_release(handle);
    return record;
}

/* records(collection, ids, class or None): walks over the items as records or as tuples. */
static PyObject* new_records(PyObject* module, PyObject* args) {
    PyObject *collection, *ids, *type;
    int32_t numbers[64];
    (void)module;
    if (!PyArg_ParseTuple(args, "O!O!O:records", object_type, &collection, &PyTuple_Type, &ids,
                          &type)) {
        return NULL;
    }
    const Py_ssize_t count = PyTuple_Size(ids);
    if (count > (Py_ssize_t)(sizeof numbers / sizeof *numbers) ||
        (type != Py_None && !PyType_IsSubtype((PyTypeObject*)type, record_type))) {
        PyErr_SetString(PyExc_ValueError, "too many members, or a class without records");
        return NULL;
    }
    for (Py_ssize_t i = 0; i < count; ++i) {
        numbers[i] = (int32_t)PyLong_AsLong(PyTuple_GetItem(ids, i));
    }
    if (PyErr_Occurred()) return NULL;
    Records* records = (Records*)PyType_GenericAlloc(records_type, 0);
    if (records == NULL) return NULL;
    const Object* object = (const Object*)collection;
    wait_for(object->family);
    const zr_status status =
        zr_read_table(object->handle, numbers, (size_t)count, &records->owner, &records->table);
    if (status != ZR_OK) {
        records->owner = 0;
        Py_DECREF(records);
        return refused(status);
    }
    if (type != Py_None) records->type = (PyTypeObject*)Py_NewRef(type);
    return (PyObject*)records;
}

static void records_dealloc(PyObject* self) {
    Records* records = (Records*)self;
    for (size_t i = 0; i < REMEMBERED; ++i) {
        Py_XDECREF(records->remembered[i].text);
    }
    zr_release(records->owner);
    Py_XDECREF((PyObject*)records->type);
    free_instance(self);
}

/* Labels and sections stand in a report again and again: each is made once, where it is not
 * forgotten for another. */
static PyObject* text_at(Records* records, const char* data, size_t size) {
    uint64_t first = 0;
    uint64_t last = 0;
    const size_t part = size < sizeof first ? size : sizeof first;
    memcpy(&first, data, part);
    memcpy(&last, data + size - part, part);
    const uint64_t mixed = (first ^ (last << 7) ^ size) * UINT64_C(0x9E3779B97F4A7C15);
    struct remembered* known = &records->remembered[mixed >> 32 & (REMEMBERED - 1)];
    if (known->text == NULL || known->size != size || memcmp(known->data, data, size) != 0) {
        PyObject* text = PyUnicode_DecodeUTF8(data, (Py_ssize_t)size, "replace");
        if (text == NULL) return NULL;
        Py_XDECREF(known->text);
        *known = (struct remembered){data, size, text};
    }
    return Py_NewRef(known->text);
}

static PyObject* records_next(PyObject* self) {
    Records* records = (Records*)self;
    const zr_table* table = &records->table;
    if (records->row == table->rows) return NULL;
    const Py_ssize_t columns = (Py_ssize_t)table->columns;
    const size_t* offsets = table->offsets + records->row++ * table->columns;
    PyObject* item =
        records->type != NULL ? new_record(records->type, columns) : PyTuple_New(columns);
    for (Py_ssize_t i = 0; item != NULL && i < columns; ++i) {
        PyObject* text = text_at(records, table->bytes + offsets[i], offsets[i + 1] - offsets[i]);
        if (text == NULL) {
            Py_CLEAR(item);
        } else if (records->type != NULL) {
            ((Record*)item)->values[i] = text;
        } else {
            PyTuple_SetItem(item, i, text);
        }
    }
    return item;
}

bool add_records(PyObject* module) {
    static PyMethodDef functions[] = {
        {"record_class", new_record_class, METH_VARARGS, "a class of items that have only texts"},
        {"records", new_records, METH_VARARGS, "walks over a collection's items, read at once"},
        {NULL, NULL, 0, NULL},
    };
    static PyType_Slot record_slots[] = {
        {Py_tp_doc, "One item of a collection, with the values that it had. Equal ones are alike."},
        {Py_tp_dealloc, record_dealloc},
        {Py_tp_richcompare, record_compare},
        {Py_tp_hash, record_hash},
        {0, NULL},
    };
    static PyType_Slot records_slots[] = {
        {Py_tp_dealloc, records_dealloc},
        {Py_tp_iter, PyObject_SelfIter},
        {Py_tp_iternext, records_next},
        {0, NULL},
    };
    static PyType_Spec record_spec = {
        "zrcreditbureau._native.Record", (int)offsetof(Record, values), sizeof(PyObject*),
        Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE | Py_TPFLAGS_DISALLOW_INSTANTIATION, record_slots};
    static PyType_Spec records_spec = {"zrcreditbureau._native.Records", sizeof(Records), 0,
                                       Py_TPFLAGS_DEFAULT | Py_TPFLAGS_DISALLOW_INSTANTIATION,
                                       records_slots};
    return PyModule_AddFunctions(module, functions) == 0 &&
           add_type(module, &record_spec, &record_type) &&
           add_type(module, &records_spec, &records_type);
}
