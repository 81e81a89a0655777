// A scene record on one line, for comparing whole records in tables:
// "ConeV 1 2 2 360", the operation and its arguments, floats in their
// shortest exact form, texts quoted, arrays in brackets; then each parameter
// as "{code name type class count values}".
#pragma once

#include <string>

#include "zel/reader/zelreader.h"

// Without `codes` the parameters' codes are left out: the codes of new names
// depend on what the process met before.
std::string describe(const ZelRecord& record, bool codes = true);
std::string describe(const ZelValue& value);
