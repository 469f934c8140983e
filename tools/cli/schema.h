// The JSON Schemas of job documents and results, made from what reads and writes them.
#pragma once

#include "automation/json.h"

namespace zr::cli {

void write_job_schema(automation::JsonWriter& json);
void write_result_schema(automation::JsonWriter& json);

}  // namespace zr::cli
