// The scene file's name when the user names none: the input's with its
// extension replaced by ".zel".
#pragma once

#include <string>

#include "frontend/inputfile.h"

// "scenes/a.rib" gives "scenes/a.zel", "a" gives "a.zel". A trailing ".gz" is
// taken off first, so "a.rib.gz" gives "a.zel" too. A leading dot of the file
// name starts no extension (".rib" gives ".rib.zel").
std::string defaultoutputpath(const std::string& input);

enum class outputcheck { usable, isInput, unwritable };

// Whether the scene of `input` (opened, or not when it could not be) may go
// to the file at `path`: never to the input itself, which emptying would
// lose, and only where a file can be created or emptied, which this proves
// by doing it. For unwritable, `reason` gets the system's words.
outputcheck checkoutput(const inputfile& input, const std::string& path, std::string& reason);
