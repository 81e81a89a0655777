// rib2bin: writes the binary twin of an ASCII RIB file.
#include <cstdio>
#include <cstring>
#include <string>

#include "tools/binarywriter.h"
#include "tools/bytereader.h"
#include "tools/ribencoder.h"

namespace {

const char kUsage[] =
    "Usage: rib2bin [--define-as bare|quoted|encoded] [--stats] [INPUT [OUTPUT]]\n"
    "Writes the binary RIB form of an ASCII RIB file. INPUT and OUTPUT default to\n"
    "standard input and output; '-' names them too.\n"
    "  --define-as FORM  how a request name follows its definition (0xCC):\n"
    "                    bare word, quoted string or encoded string (default)\n"
    "  --stats           print the number of tokens and of request words\n"
    "                    (statements) to standard error\n";

struct Options {
  ribtools::DefineForm form = ribtools::DefineForm::kEncoded;
  const char* input = "-";
  const char* output = "-";
  bool stats = false;
};

bool parseForm(const char* word, ribtools::DefineForm& form) {
  if (std::strcmp(word, "bare") == 0) {
    form = ribtools::DefineForm::kBare;
  } else if (std::strcmp(word, "quoted") == 0) {
    form = ribtools::DefineForm::kQuoted;
  } else if (std::strcmp(word, "encoded") == 0) {
    form = ribtools::DefineForm::kEncoded;
  } else {
    return false;
  }
  return true;
}

// Returns 0 to go on, otherwise the exit status.
int parseArguments(int argc, char** argv, Options& options) {
  int files = 0;
  for (int i = 1; i < argc; ++i) {
    const char* arg = argv[i];
    if (std::strcmp(arg, "--help") == 0 || std::strcmp(arg, "-h") == 0) {
      std::fputs(kUsage, stdout);
      return -1;
    }
    if (std::strcmp(arg, "--stats") == 0) {
      options.stats = true;
    } else if (std::strcmp(arg, "--define-as") == 0) {
      if (i + 1 == argc || !parseForm(argv[++i], options.form)) {
        std::fprintf(stderr, "rib2bin: --define-as takes bare, quoted or encoded\n");
        return 2;
      }
    } else if (arg[0] == '-' && arg[1] != '\0') {
      std::fprintf(stderr, "rib2bin: unknown option '%s'\n%s", arg, kUsage);
      return 2;
    } else if (files == 0) {
      options.input = arg;
      ++files;
    } else if (files == 1) {
      options.output = arg;
      ++files;
    } else {
      std::fprintf(stderr, "rib2bin: too many arguments\n%s", kUsage);
      return 2;
    }
  }
  return 0;
}

FILE* openFile(const char* path, const char* mode, FILE* standard) {
  if (std::strcmp(path, "-") == 0) return standard;
  FILE* f = std::fopen(path, mode);
  if (f == nullptr) std::fprintf(stderr, "rib2bin: cannot open '%s'\n", path);
  return f;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  int status = parseArguments(argc, argv, options);
  if (status != 0) return status < 0 ? 0 : status;

  FILE* in = openFile(options.input, "rb", stdin);
  if (in == nullptr) return 1;
  FILE* out = openFile(options.output, "wb", stdout);
  if (out == nullptr) return 1;

  ribtools::ByteReader reader(in);
  ribtools::BinaryWriter writer(out, options.form);
  ribtools::EncodeResult result = ribtools::encodeRib(reader, writer);
  bool written = writer.flush();
  if (out != stdout && std::fclose(out) != 0) written = false;
  if (!result.ok) {
    std::fprintf(stderr, "rib2bin: %s: %s\n", options.input, result.message.c_str());
    return 1;
  }
  if (!written) {
    std::fprintf(stderr, "rib2bin: cannot write '%s'\n", options.output);
    return 1;
  }
  if (options.stats) {
    std::fprintf(stderr, "%lld tokens, %lld requests\n", static_cast<long long>(result.tokens),
                 static_cast<long long>(result.keywords));
  }
  return 0;
}
