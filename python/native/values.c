/* Values between Python and the C interface. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "native.h"

PyObject* known_types;
static PyObject* error_type;
static PyObject* datetime_type;
static PyObject* decimal_type;
static PyObject* parts_of_date;  /* date -> (year, month, day, hour, minute, second) */
static PyObject* units_of_money; /* Decimal -> ten-thousandths */

static const char* const kind_names[KINDS] = {"nothing", "text",     "boolean",    "int16",
                                              "int32",   "currency", "date",       "date-or-null",
                                              "index",   "object",   "enumeration"};

/* What Python programmers know each type as. */
static const char* const python_names[KINDS] = {"None",
                                                "str",
                                                "bool",
                                                "int",
                                                "int",
                                                "Decimal",
                                                "datetime.date",
                                                "datetime.date, str or None",
                                                "str or int",
                                                "an object of this package",
                                                "int"};

bool read_type(const char* kind, PyObject* of, struct type* type) {
    for (int i = 0; i < KINDS; ++i) {
        if (strcmp(kind, kind_names[i]) == 0) {
            type->kind = (enum kind)i;
            type->of = of == Py_None ? NULL : Py_NewRef(of);
            return true;
        }
    }
    PyErr_Format(PyExc_ValueError, "the interface has a type '%s' that this package does not know",
                 kind);
    return false;
}

static PyObject* text_of(zr_text text) {
    return PyUnicode_DecodeUTF8(text.data != NULL ? text.data : "", (Py_ssize_t)text.size,
                                "replace");
}

PyObject* refused(zr_status status) {
    zr_error error;
    zr_last_error(&error);
    if (status == ZR_NO_MEMORY) return PyErr_NoMemory();
    PyObject* description = text_of(error.description);
    PyObject* source = text_of(error.source);
    if (description == NULL || source == NULL) {
        Py_XDECREF(description);
        Py_XDECREF(source);
        return NULL;
    }
    PyObject* kind = status == ZR_RAISED                                ? error_type
                     : status == ZR_UNKNOWN || status == ZR_NOT_ALLOWED ? PyExc_AttributeError
                     : status == ZR_BAD_TYPE || status == ZR_BAD_COUNT  ? PyExc_TypeError
                                                                        : PyExc_SystemError;
    PyObject* raised = PyObject_CallFunctionObjArgs(kind, description, NULL);
    if (raised != NULL && kind == error_type) {
        PyObject* number = PyLong_FromLong(error.number);
        if (number == NULL || PyObject_SetAttrString(raised, "number", number) < 0 ||
            PyObject_SetAttrString(raised, "source", source) < 0 ||
            PyObject_SetAttrString(raised, "description", description) < 0) {
            Py_CLEAR(raised);
        }
        Py_XDECREF(number);
    }
    if (raised != NULL) PyErr_SetObject(kind, raised);
    Py_XDECREF(raised);
    Py_DECREF(description);
    Py_DECREF(source);
    return NULL;
}

static bool wrong_type(const struct type* type, PyObject* what, PyObject* given) {
    PyObject* name = PyType_GetName(Py_TYPE(given));
    if (name != NULL) {
        PyErr_Format(PyExc_TypeError, "%U must be %s, not %U", what, python_names[type->kind],
                     name);
        Py_DECREF(name);
    }
    return false;
}

static bool text_from(PyObject* given, zr_value* value) {
    Py_ssize_t size = 0;
    value->type = ZR_TEXT;
    value->as.text.data = PyUnicode_AsUTF8AndSize(given, &size);
    value->as.text.size = (size_t)size;
    return value->as.text.data != NULL;
}

static bool number_from(const struct type* type, PyObject* what, PyObject* given, zr_value* value) {
    const long most = type->kind == KIND_INT16 ? INT16_MAX : INT32_MAX;
    int overflow = 0;
    const long number = PyLong_AsLongAndOverflow(given, &overflow);
    if (overflow != 0 || number > most || number < -most - 1) {
        PyErr_Format(PyExc_OverflowError, "%U must be from %ld to %ld", what, -most - 1, most);
        return false;
    }
    value->type = ZR_INT32;
    value->as.int32 = (int32_t)number;
    return true;
}

static bool money_from(PyObject* given, zr_value* value) {
    PyObject* units = PyObject_CallFunctionObjArgs(units_of_money, given, NULL);
    if (units == NULL) return false;
    value->type = ZR_CURRENCY;
    value->as.currency = PyLong_AsLongLong(units);
    Py_DECREF(units);
    return !PyErr_Occurred();
}

static bool date_from(PyObject* given, zr_value* value) {
    PyObject* parts = PyObject_CallFunctionObjArgs(parts_of_date, given, NULL);
    if (parts == NULL) return false;
    zr_date* date = &value->as.date;
    value->type = ZR_DATE;
    const bool read = PyArg_ParseTuple(parts, "hbbbbb", &date->year, &date->month, &date->day,
                                       &date->hour, &date->minute, &date->second);
    Py_DECREF(parts);
    return read;
}

static bool is_whole(PyObject* given) { return PyLong_Check(given) && !PyBool_Check(given); }

bool from_python(const struct type* type, PyObject* what, PyObject* given, zr_value* value) {
    const bool text = PyUnicode_Check(given);
    switch (type->kind) {
        case KIND_TEXT:
            if (text) return text_from(given, value);
            break;
        case KIND_INDEX:
            if (text) return text_from(given, value);
            if (is_whole(given)) return number_from(type, what, given, value);
            break;
        case KIND_INT16:
        case KIND_INT32:
        case KIND_ENUMERATION:
            if (is_whole(given)) return number_from(type, what, given, value);
            break;
        case KIND_BOOLEAN:
            value->type = ZR_BOOLEAN;
            value->as.boolean = given == Py_True;
            if (PyBool_Check(given)) return true;
            break;
        case KIND_CURRENCY:
            if (!text && PyObject_HasAttrString(given, "as_integer_ratio") &&
                !PyFloat_Check(given) && !PyBool_Check(given)) {
                return money_from(given, value);
            }
            break;
        case KIND_DATE_OR_NULL:
            value->type = ZR_NULL;
            if (given == Py_None) return true;
            if (text) return text_from(given, value);
            /* fall through */
        case KIND_DATE:
            if (PyObject_HasAttrString(given, "timetuple")) return date_from(given, value);
            break;
        case KIND_OBJECT:
            value->type = ZR_OBJECT;
            value->as.object = 0;
            if (given == Py_None) return true;
            if (PyObject_TypeCheck(given, object_type)) {
                value->as.object = ((Object*)given)->handle;
                return true;
            }
            break;
        default:
            break;
    }
    return wrong_type(type, what, given);
}

static PyObject* money(int64_t units) {
    char digits[48];
    const lldiv_t parts = lldiv(units, 10000);
    snprintf(digits, sizeof digits, "%s%lld.%04lld", units < 0 ? "-" : "", llabs(parts.quot),
             llabs(parts.rem));
    return PyObject_CallFunction(decimal_type, "s", digits);
}

/* A number of an enumeration is its member; one that has none, as flags together, stays a number.
 */
static PyObject* number(const struct type* type, long value) {
    if (type->kind == KIND_ENUMERATION) {
        PyObject* enumeration = PyDict_GetItemWithError(known_types, type->of);
        PyObject* named =
            enumeration != NULL ? PyObject_CallFunction(enumeration, "l", value) : NULL;
        if (named != NULL) return named;
        if (PyErr_Occurred() && !PyErr_ExceptionMatches(PyExc_ValueError)) return NULL;
        PyErr_Clear();
    }
    return PyLong_FromLong(value);
}

PyObject* to_python(const struct type* type, const zr_value* value, struct family* family) {
    const zr_date* date = &value->as.date;
    switch (value->type) {
        case ZR_TEXT:
            return text_of(value->as.text);
        case ZR_BOOLEAN:
            return PyBool_FromLong(value->as.boolean);
        case ZR_INT16:
            return number(type, value->as.int16);
        case ZR_INT32:
            return number(type, value->as.int32);
        case ZR_CURRENCY:
            return money(value->as.currency);
        case ZR_DATE:
            return PyObject_CallFunction(datetime_type, "iiiiii", date->year, date->month,
                                         date->day, date->hour, date->minute, date->second);
        case ZR_OBJECT:
            if (value->as.object != 0) return wrap(value->as.object, type->of, family);
            break;
        default:
            break;
    }
    Py_RETURN_NONE;
}

static bool import(const char* module, const char* name, PyObject** imported) {
    PyObject* from = PyImport_ImportModule(module);
    *imported = from != NULL ? PyObject_GetAttrString(from, name) : NULL;
    Py_XDECREF(from);
    return *imported != NULL;
}

bool add_values(PyObject* module) {
    known_types = PyDict_New();
    error_type = PyErr_NewExceptionWithDoc(
        "zrcreditbureau.Error",
        "What the component raises. `number` is the error's number (5 for an item that is not "
        "there), `source` what raised it, `description` one sentence for people.",
        NULL, NULL);
    return known_types != NULL && error_type != NULL &&
           PyModule_AddObjectRef(module, "types", known_types) == 0 &&
           PyModule_AddObjectRef(module, "Error", error_type) == 0 &&
           import("datetime", "datetime", &datetime_type) &&
           import("decimal", "Decimal", &decimal_type) &&
           import("zrcreditbureau._values", "parts_of_date", &parts_of_date) &&
           import("zrcreditbureau._values", "units_of_money", &units_of_money);
}
