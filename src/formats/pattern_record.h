#pragma once

#include "formats/byte_reader.h"
#include "formats/ps_pattern.h"

namespace quiltor {

enum class AfterRecord { ReadOn, Stop };

// One pattern of a Photoshop pattern file, from where the reader stands. Null when it was read, else the reason why
// not. Read, it leaves the reader at the end of its array list; where a failure leaves it is where the next pattern is
// looked for. The name is set in either case when there is one.
[[nodiscard]] const char* readPatternRecord(ByteReader& in, PsPattern& pattern, AfterRecord& after);

}  // namespace quiltor
