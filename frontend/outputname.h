// The scene file's name when the user names none: the input's with its
// extension replaced by ".zel".
#pragma once

#include <string>

// "scenes/a.rib" gives "scenes/a.zel", "a" gives "a.zel". A trailing ".gz" is
// taken off first, so "a.rib.gz" gives "a.zel" too. A leading dot of the file
// name starts no extension (".rib" gives ".rib.zel").
std::string defaultoutputpath(const std::string& input);
