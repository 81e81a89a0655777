// Camera, sampling, image and output operations: plain records.
#include <cstdarg>
#include <cstdio>
#include <string>

#include "interface/scene/zel.h"
#include "zel/library.h"
#include "zel/record.h"

using namespace zel;

namespace {

size_t nonNegative(int32_t n) {
  return n > 0 ? static_cast<size_t>(n) : 0;
}

}  // namespace

void _zelRasterViewport(int32_t xmin, int32_t xmax, int32_t ymin, int32_t ymax) {
  Record("RasterViewport").i(xmin).i(xmax).i(ymin).i(ymax).end();
}
void _zelRasterAspect(float aspect) {
  Record("RasterAspect").f(aspect).end();
}
void _zelImageAspect(float aspect) {
  Record("ImageAspect").f(aspect).end();
}
void _zelImageWindow(float left, float right, float bottom, float top) {
  Record("ImageWindow").f(left).f(right).f(bottom).f(top).end();
}
void _zelImageCrop(float xmin, float xmax, float ymin, float ymax) {
  Record("ImageCrop").f(xmin).f(xmax).f(ymin).f(ymax).end();
}
void _zelViewIdentity() {
  Record("ViewIdentity").end();
}
void _zelViewOrthographic() {
  Record("ViewOrthographic").end();
}
void _zelViewPerspective(float fov) {
  Record("ViewPerspective").f(fov).end();
}
void _zelClip(float nearplane, float farplane) {
  Record("Clip").f(nearplane).f(farplane).end();
}

void _zelSampleAdaptive(float variation) {
  Record("SampleAdaptive").f(variation).end();
}
void _zelSampleUniform(float xsamples, float ysamples) {
  Record("SampleUniform").f(xsamples).f(ysamples).end();
}
void _zelSampleJitter(float jitter) {
  Record("SampleJitter").f(jitter).end();
}
void _zelFilter(uint16_t filter) {
  Record("Filter").i(filter).end();
}
void _zelCustomFilter(RtFilterFunc function) {
  Record("CustomFilter").opaque(function != nullptr).end();
}
void _zelFilterWidth(float xwidth, float ywidth) {
  Record("FilterWidth").f(xwidth).f(ywidth).end();
}
void _zelHider(uint16_t hider) {
  Record("Hider").i(hider).end();
}

void _zelColorGain(float gain) {
  Record("ColorGain").f(gain).end();
}
void _zelColorGamma(float gamma) {
  Record("ColorGamma").f(gamma).end();
}
void _zelColorQuantize(int32_t one, int32_t min, int32_t max) {
  Record("ColorQuantize").i(one).i(min).i(max).end();
}
void _zelColorJitter(float amplitude) {
  Record("ColorJitter").f(amplitude).end();
}
void _zelDepthQuantize(int32_t one, int32_t min, int32_t max) {
  Record("DepthQuantize").i(one).i(min).i(max).end();
}
void _zelDepthJitter(float amplitude) {
  Record("DepthJitter").f(amplitude).end();
}
void _zelColorSpace(int32_t n, const float* nRGB, const float* RGBn) {
  size_t numbers = 3 * nonNegative(n);
  Record("ColorSpace").i(n).floats(nRGB, numbers).floats(RGBn, numbers).end();
}

void _zelOutputFile(uint16_t kind, const char* name) {
  if (kind != kZelSceneFile) {
    Record("OutputFile").i(kind).text(name).end();
    return;
  }
  Library& lib = library();
  lib.startFile();
  if (lib.output.openFile(name)) lib.writeHeader();
}

void _zelOutputDisplay(const char* name) {
  Record("OutputDisplay").text(name).end();
}
void _zelOutputSamples(uint16_t mode) {
  Record("OutputSamples").i(mode).end();
}
void _zelTune(int32_t gridsize, int32_t bucketwidth, int32_t bucketheight) {
  Record("Tune").i(gridsize).i(bucketwidth).i(bucketheight).end();
}

void _zelComment(const char* format, ...) {
  // One buffer for the life of the process: comments do not allocate once it
  // has grown to the longest of them.
  static std::string text;
  if (format == nullptr) {
    Record("Comment").text(nullptr).text(nullptr).end();
    return;
  }
  va_list args;
  va_start(args, format);
  va_list again;
  va_copy(again, args);
  text.resize(text.capacity() > 256 ? text.capacity() : 256);
  int length = std::vsnprintf(text.data(), text.size() + 1, format, args);
  if (length > static_cast<int>(text.size())) {
    text.resize(static_cast<size_t>(length));
    std::vsnprintf(text.data(), text.size() + 1, format, again);
  }
  va_end(again);
  va_end(args);
  text.resize(length > 0 ? static_cast<size_t>(length) : 0);
  Record("Comment").text(format).text(text.c_str()).end();
}
