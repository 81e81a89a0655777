// writeShortest must give exactly the text of std::to_chars, which is the
// shortest that reads back to the same bits. Checked on floats spread over
// every exponent, on the decimals scenes are written with, and on the edges
// between its ways of working.
#include "zel/shortestfloat.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

std::string expected(float value) {
  char buffer[64];
  return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

std::string written(float value) {
  char buffer[zel::kShortestFloatChars];
  return std::string(buffer, zel::writeShortest(buffer, value));
}

float readBack(const std::string& text) {
  float value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

// Checks a value and reports it by its bits, stopping the caller's loop
// after the first few failures so that one fault does not flood the log.
class Checker {
 public:
  void check(float value) {
    if (failures_ >= 5) return;
    const std::string want = expected(value);
    const std::string got = written(value);
    if (got != want || std::bit_cast<uint32_t>(readBack(got)) != std::bit_cast<uint32_t>(value)) {
      ++failures_;
      ADD_FAILURE() << "bits 0x" << std::hex << std::bit_cast<uint32_t>(value) << ": wrote " << got
                    << ", to_chars writes " << want;
    }
  }

 private:
  int failures_ = 0;
};

TEST(ShortestFloat, MatchesToCharsAcrossAllExponents) {
  Checker checker;
  // A stride prime to every power of two visits all exponents and mantissas
  // of both signs.
  for (uint64_t bits = 0; bits <= 0xFFFFFFFFu; bits += 4093) {
    const float value = std::bit_cast<float>(static_cast<uint32_t>(bits));
    if (std::isfinite(value)) checker.check(value);
  }
}

TEST(ShortestFloat, MatchesToCharsOnSceneDecimals) {
  Checker checker;
  std::mt19937 random(7);
  for (int i = 0; i < 300000; ++i) {
    // One to nine significant digits, from 1e-9 to 1e9, either sign: what
    // a scene's author or another program writes.
    const int digits = 1 + static_cast<int>(random() % 9);
    const int exponent = static_cast<int>(random() % 19) - 9;
    const long mantissa =
        static_cast<long>(random() % 1000000000) % static_cast<long>(std::pow(10, digits));
    char text[64];
    std::snprintf(text, sizeof text, "%s%lde%d", random() % 2 ? "-" : "", mantissa, exponent);
    checker.check(readBack(text));
  }
}

TEST(ShortestFloat, MatchesToCharsAtTheEdges) {
  Checker checker;
  const float max = std::numeric_limits<float>::max();
  std::vector<float> values = {0.0f,  -0.0f,      1.0f,        0.5f,       0.1f,     1e7f,
                               1e-7f, 9999999.0f, 10000000.0f, 8388607.5f, 3.0e7f,   33554432.0f,
                               1e-8f, 1.5e-8f,    max,         -max,       123456.7f};
  // Neighbours of powers of two (the bound below is nearer there) and of
  // powers of ten (where the digit count changes).
  for (int e = -149; e <= 127; ++e) values.push_back(std::ldexp(1.0f, e));
  for (int e = -38; e <= 38; ++e) values.push_back(static_cast<float>(std::pow(10.0, e)));
  for (float v : std::vector<float>(values)) {
    values.push_back(std::nextafter(v, 0.0f));
    values.push_back(std::nextafter(v, max));
  }
  for (float v : values) {
    checker.check(v);
    checker.check(-v);
  }
}

}  // namespace
