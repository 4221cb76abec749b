// libFuzzer target for the script parser: any text either parses into lines
// or is refused with a message naming the line. Parsing only: nothing here
// runs a line, so no `file`, `dump` or `shot` touches the disk.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "automation/script.h"
#include "core/errors.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  try {
    for (const automation::ScriptLine& line : automation::ParseScript(text, "fuzz.vs")) {
      if (line.lineNumber <= 0) std::abort();
      // The names the `file` lines would act on never leave the home folder.
      if ((line.command.op == automation::Op::FilePut || line.command.op == automation::Op::FileRemove) &&
          (line.command.text1.empty() || line.command.text1[0] == '/' ||
           line.command.text1.find("..") != std::string::npos))
        std::abort();
    }
  } catch (const core::UsageError& e) {
    if (std::string(e.what()).rfind("fuzz.vs:", 0) != 0) std::abort();
  }
  return 0;
}
