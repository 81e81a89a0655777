// Record-by-record comparison of two ZEL files through the ZEL reader.
#pragma once

#include <string>

#include <gtest/gtest.h>

namespace golden {

// Success when both files hold the same records (the header's generator is not
// compared). A failure names the first differing records with their lines as
// written, and the record counts.
testing::AssertionResult sameRecords(const std::string& actualPath,
                                     const std::string& expectedPath);

}  // namespace golden
