// Helpers shared by the front end's tests: gzip compression of test input and
// a look at the records of a scene file.
#pragma once

#include <string>
#include <vector>

// The bytes compressed in the gzip format, as the gzip tool writes them.
std::string gzipped(const std::string& bytes);

// The operation names of a scene file's records, in order. Throws
// ZelReadError when the text is not a well-formed scene file made of whole
// records.
std::vector<std::string> sceneops(const std::string& zelText);
