/* A host in C: translates a stored reply and prints its lines.
 *
 *   c_host COUNTRY SERVICE PRODUCT REPLY.xml YYYY-MM-DD */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "zrcreditbureau5.h"

static void must(zr_status status) {
    if (status != ZR_OK) {
        zr_error error;
        zr_last_error(&error);
        fprintf(stderr, "c_host: %.*s\n", (int)error.description.size, error.description.data);
        exit(1);
    }
}

static zr_value text_of(const char* data, size_t size) {
    zr_value value = {ZR_TEXT, {0}};
    value.as.text.data = data;
    value.as.text.size = size;
    return value;
}

static zr_value text(const char* words) { return text_of(words, strlen(words)); }

/* Runs an operation or reads a property. */
static zr_value get(zr_handle object, const char* name, const zr_value* arguments, size_t count) {
    zr_value result;
    must(zr_get_by_name(object, name, arguments, count, &result));
    return result;
}

static void set(zr_handle object, const char* name, zr_value value) {
    must(zr_put_by_name(object, name, &value, 1));
}

static char* read_file(const char* name, size_t* size) {
    FILE* file = fopen(name, "rb");
    char* bytes = NULL;
    long length = 0;
    if (file == NULL || fseek(file, 0, SEEK_END) != 0 || (length = ftell(file)) < 0 ||
        fseek(file, 0, SEEK_SET) != 0 || (bytes = malloc((size_t)length + 1)) == NULL ||
        fread(bytes, 1, (size_t)length, file) != (size_t)length) {
        fprintf(stderr, "c_host: %s cannot be read\n", name);
        exit(1);
    }
    fclose(file);
    *size = (size_t)length;
    return bytes;
}

static zr_value date(const char* words) {
    int year = 0, month = 0, day = 0;
    zr_value value = {ZR_DATE, {0}};
    if (sscanf(words, "%4d-%2d-%2d", &year, &month, &day) != 3) {
        fprintf(stderr, "c_host: a date is written 2012-06-15\n");
        exit(2);
    }
    value.as.date.year = (int16_t)year;
    value.as.date.month = (uint8_t)month;
    value.as.date.day = (uint8_t)day;
    return value;
}

/* The lines, all at once. */
static void print_lines(zr_handle lines) {
    zr_value first = {ZR_INT32, {1}};
    zr_value line = get(lines, "Item", &first, 1);
    const char* const members[] = {"ResponseGroup", "ResponseName", "ResponseDescription"};
    int32_t ids[3];
    zr_handle owner;
    zr_table table;
    size_t row, column;
    for (column = 0; column < 3; ++column) {
        must(zr_member_id(line.as.object, members[column], &ids[column]));
    }
    must(zr_read_table(lines, ids, 3, &owner, &table));
    for (row = 0; row < table.rows; ++row) {
        for (column = 0; column < table.columns; ++column) {
            const size_t* at = table.offsets + row * table.columns + column;
            printf("%.*s%s", (int)(at[1] - at[0]), table.bytes + at[0], column < 2 ? " | " : "\n");
        }
    }
    must(zr_release(owner));
    must(zr_release(line.as.object));
}

int main(int argc, char** argv) {
    zr_handle bureau, request, response, lines;
    zr_value arguments[3];
    size_t size;
    char* reply;
    int failed = 0;
    if (argc != 6) {
        fprintf(stderr, "usage: c_host COUNTRY SERVICE PRODUCT REPLY.xml YYYY-MM-DD\n");
        return 2;
    }
    reply = read_file(argv[4], &size);
    must(zr_create("ZRCreditBureau5.ZRCreditBureau", &bureau));
    arguments[0] = text(argv[1]);
    failed = !get(bureau, "Initialise", arguments, 1).as.boolean;
    request = get(bureau, "CreateRequest", NULL, 0).as.object;
    set(request, "ServiceName", text(argv[2]));
    set(request, "ProductId", text(argv[3]));
    arguments[0].type = ZR_OBJECT;
    arguments[0].as.object = request;
    arguments[1] = date(argv[5]);
    arguments[2] = text_of(reply, size);
    if (failed || !get(bureau, "BuildResponse", arguments, 3).as.boolean) {
        zr_text reason = get(bureau, "ErrorMessage", NULL, 0).as.text;
        fprintf(stderr, "c_host: %.*s\n", (int)reason.size, reason.data);
        failed = 1;
    } else {
        response = get(request, "Response", NULL, 0).as.object;
        lines = get(response, "ResponseElements", NULL, 0).as.object;
        if (get(lines, "Count", NULL, 0).as.int32 > 0) {
            print_lines(lines);
        }
        must(zr_release(lines));
        must(zr_release(response));
    }
    must(zr_release(request));
    must(zr_release(bureau));
    free(reply);
    return failed;
}
