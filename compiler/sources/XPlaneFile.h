#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "compiler/sources/AiracCycle.h"
#include "compiler/sources/Fields.h"
#include "compiler/sources/ImportLog.h"
#include "compiler/sources/LineReader.h"

namespace korvel {

/// What every importer is given besides its source: where findings go, and who wants to know how
/// far it is (share of the source read, 0 to 1; called every few thousand lines).
struct ImportContext {
    ImportLog& log;
    std::function<void(double share)> progress;
};

/// An X-Plane data file: a line that says "I" or "A" or is empty, a line that begins with the
/// format version and may name the data cycle, then lines of words, ended by a line "99".
class XPlaneFile {
 public:
    /// `name` is what messages call the file.
    XPlaneFile(std::string name, std::unique_ptr<ByteSource> source, ImportContext& context);

    /// Reads the two header lines. Empty on success; otherwise why the file is refused: it is no
    /// X-Plane file, or its version lies outside [oldest, newest].
    [[nodiscard]] std::string readHeader(int oldest, int newest);

    [[nodiscard]] int version() const { return version_; }
    /// The data cycle that the header names.
    [[nodiscard]] const std::optional<AiracCycle>& cycle() const { return cycle_; }

    /// The next line that is not empty, as words. False at the closing "99" and at the end.
    bool next(Fields& fields);
    /// Reports the line that next() gave last as malformed.
    void malformed(std::string_view reason);
    /// After next() gave false: empty, or that reading failed.
    [[nodiscard]] std::string failure() const;

 private:
    std::string name_;
    LineReader lines_;
    ImportContext& context_;
    int version_ = 0;
    std::optional<AiracCycle> cycle_;
};

}  // namespace korvel
