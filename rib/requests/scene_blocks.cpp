// Resources, conditional blocks and edits. Each Begin opens a block that its
// own End must close, innermost first: an End that closes nothing open, or
// that would leave a block of another kind inside it unclosed, is reported and
// dropped. Every branch of a conditional is read and recorded: what its
// expression tests is known only to the renderer.
#include <cstring>

#include "interface/ri.h"
#include "rib/requests/archivestate.h"
#include "rib/requests/extendedrib.h"
#include "rib/requests/handler_support.h"
#include "rib/tokenvalue.h"

namespace {

struct blockwords {
  const char* begin;
  const char* end;
};

// By sceneblock::kind.
const blockwords kWords[] = {{"ResourceBegin", "ResourceEnd"},
                             {"IfBegin", "IfEnd"},
                             {"EditBegin", "EditEnd"},
                             {"EditWorldBegin", "EditWorldEnd"},
                             {"EditAttributeBegin", "EditAttributeEnd"}};

}  // namespace

void extendedrib::opens(uint8_t kind) {
  state_->blocks.stack.push_back({static_cast<sceneblock::kind>(kind), lex.lastline});
  ++state_->blocks.open[kind];
}

bool extendedrib::closes(uint8_t kind) {
  std::vector<sceneblock>& blocks = state_->blocks.stack;
  if (state_->blocks.open[kind] == 0) {
    lex.RIBError(kRibSyntax, kRibError, "%s without %s", kWords[kind].end, kWords[kind].begin);
    return false;
  }
  if (blocks.back().what != kind) {
    lex.RIBError(kRibSyntax, kRibError, "%s while the %s of line %lu is open", kWords[kind].end,
                 kWords[blocks.back().what].begin, static_cast<unsigned long>(blocks.back().line));
    return false;
  }
  blocks.pop_back();
  --state_->blocks.open[kind];
  return true;
}

// Whether an ElseIf or Else stands in the innermost block, an open If.
bool extendedrib::inIf(const char* request) {
  const std::vector<sceneblock>& blocks = state_->blocks.stack;
  if (!blocks.empty() && blocks.back().what == sceneblock::If) return true;
  if (state_->blocks.open[sceneblock::If] == 0) {
    lex.RIBError(kRibSyntax, kRibError, "%s without IfBegin", request);
  } else {
    lex.RIBError(kRibSyntax, kRibError, "%s while the %s of line %lu is open", request,
                 kWords[blocks.back().what].begin, static_cast<unsigned long>(blocks.back().line));
  }
  return false;
}

// At the end of the stream, innermost first; a stream that leaves thousands
// open gets a count for all but the first few.
void extendedrib::reportOpenBlocks() {
  constexpr size_t kNamed = 16;
  std::vector<sceneblock>& blocks = state_->blocks.stack;
  for (size_t i = 0; i < blocks.size() && i < kNamed; ++i) {
    const sceneblock& b = blocks[blocks.size() - 1 - i];
    lex.RIBError(kRibSyntax, kRibError, "%s of line %lu has no %s", kWords[b.what].begin,
                 static_cast<unsigned long>(b.line), kWords[b.what].end);
  }
  if (blocks.size() > kNamed) {
    lex.RIBError(kRibSyntax, kRibError, "%zu more blocks have no end", blocks.size() - kNamed);
  }
  state_->blocks = sceneblocks();
}

void extendedrib::Resource() {
  String handle, type;
  tokenvalue params;
  if (!matchToken(&handle) || !matchToken(&type) || !match(params, 0)) return;
  if (std::strcmp(type.c_str(), "attributes") == 0) {
    const char* operation = stringParameter(params, "operation");
    if (!operation ||
        (std::strcmp(operation, "save") != 0 && std::strcmp(operation, "restore") != 0)) {
      lex.RIBError(
          kRibBadValue, kRibError,
          "Resource \"%s\" \"attributes\" needs a \"string operation\" of \"save\" or \"restore\"",
          handle.c_str());
      return;
    }
  }
  RiResourceV(ritext(handle), ritext(type), listCount(params), params.tokens.data,
              params.values.data);
}

void extendedrib::ResourceBegin() {
  opens(sceneblock::Resource);
  RiResourceBegin();
}

void extendedrib::ResourceEnd() {
  if (closes(sceneblock::Resource)) RiResourceEnd();
}

// An expression is text, not a name: "null" stays the text "null".
void extendedrib::IfBegin() {
  String expression;
  if (!match(&expression)) return;
  opens(sceneblock::If);
  RiIfBegin(const_cast<char*>(expression.c_str()));
}

void extendedrib::ElseIf() {
  String expression;
  if (!match(&expression) || !inIf("ElseIf")) return;
  if (state_->blocks.stack.back().elseSeen) {
    lex.RIBError(kRibSyntax, kRibError, "ElseIf after the Else of the IfBegin of line %lu",
                 static_cast<unsigned long>(state_->blocks.stack.back().line));
    return;
  }
  RiElseIf(const_cast<char*>(expression.c_str()));
}

void extendedrib::Else() {
  if (!inIf("Else")) return;
  sceneblock& block = state_->blocks.stack.back();
  if (block.elseSeen) {
    lex.RIBError(kRibSyntax, kRibError, "A second Else for the IfBegin of line %lu",
                 static_cast<unsigned long>(block.line));
    return;
  }
  block.elseSeen = true;
  RiElse();
}

void extendedrib::IfEnd() {
  if (closes(sceneblock::If)) RiIfEnd();
}

void extendedrib::EditBegin() {
  String type;
  tokenvalue params;
  if (!matchToken(&type) || !match(params, 0)) return;
  opens(sceneblock::Edit);
  RiEditBeginV(ritext(type), listCount(params), params.tokens.data, params.values.data);
}

void extendedrib::EditEnd() {
  if (closes(sceneblock::Edit)) RiEditEnd();
}

void extendedrib::EditWorldBegin() {
  tokenvalue params;
  if (!match(params, 0)) return;
  opens(sceneblock::EditWorld);
  RiEditWorldBeginV(listCount(params), params.tokens.data, params.values.data);
}

void extendedrib::EditWorldEnd() {
  if (closes(sceneblock::EditWorld)) RiEditWorldEnd();
}

void extendedrib::EditAttributeBegin() {
  tokenvalue params;
  if (!match(params, 0)) return;
  opens(sceneblock::EditAttribute);
  RiEditAttributeBeginV(listCount(params), params.tokens.data, params.values.data);
}

void extendedrib::EditAttributeEnd() {
  if (closes(sceneblock::EditAttribute)) RiEditAttributeEnd();
}
