// Names, parameter info and the error mode.
#include <string>

#include "interface/scene/zel.h"
#include "zel/library.h"
#include "zel/messages.h"
#include "zel/record.h"

using namespace zel;

void _zelParameterInfo(int32_t n, const ZelParam* params) {
  library().params.set(n, params);
}

int32_t _zelQuark(const char* name) {
  // The Ri layer's dictionary reads a null name as the text "null"; so does this.
  std::string_view text = name ? name : "null";
  Quarks::Result result = library().quarks.code(text);
  if (result.code == 0) {
    report(kLimit, kError,
           "no code left for the name \"" + std::string(text) + "\": all " +
               std::to_string(Quarks::kCapacity) + " codes are in use");
  } else if (result.fresh) {
    writeQuark(result.code);
  }
  return result.code;
}

void _zelErrorHandler(uint16_t which, uint16_t mode) {
  Record("ErrorHandler").i(which).i(mode).end();
  switch (mode) {
    case kZelIgnore:
      setMode(Mode::Ignore);
      break;
    case kZelPrint:
      setMode(Mode::Print);
      break;
    case kZelAbort:
      setMode(Mode::Abort);
      break;
    default:
      report(kRange, kError,
             "ErrorHandler with unknown mode " + std::to_string(mode) + "; the mode stays");
  }
}

void _zelCustomErrorHandler(uint16_t which, RtErrorHandler handler) {
  Record("CustomErrorHandler").i(which).opaque(handler != nullptr).end();
  // Without a function to call, faults are printed.
  setMode(handler ? Mode::Custom : Mode::Print, handler);
}
