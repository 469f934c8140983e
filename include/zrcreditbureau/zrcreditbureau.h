// Everything that a host needs.
#pragma once

#include "zrcreditbureau/b2bay_services.h"
#include "zrcreditbureau/error.h"
#include "zrcreditbureau/vedaxml_services.h"
#include "zrcreditbureau/zr_credit_bureau.h"
#include "zrcreditbureau/zr_string_builder.h"
#include "zrcreditbureau/zr_xml_builder.h"
