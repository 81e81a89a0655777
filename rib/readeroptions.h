// How a conversion wants its RIB read, fixed when the parser is made.
#pragma once

struct readeroptions {
  // The forms of later versions of the interface (archives, string handles,
  // inline declarations, procedurals kept whole), and a report wherever the
  // classic reader drops or changes data without a word.
  bool extended = false;
  // False: an ErrorHandler request for "abort" prints instead, so that no
  // scene can end the process of a program that embeds the reader (a fuzzer,
  // a service).
  bool mayAbort = true;
};
