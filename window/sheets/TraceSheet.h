#pragma once

#include <QCheckBox>
#include <QTimer>

#include "window/sheets/TextSheet.h"

namespace korvel {

class CKorvelDoc;

/// The receiver's sentences as they come, each with what became of it. Tracing is on while the
/// sheet lives.
class TraceSheet final : public TextSheet {
 public:
    static constexpr int kLines = 200;

    /// The document must outlive the sheet.
    TraceSheet(QWidget* parent, CKorvelDoc& document);
    TraceSheet(const TraceSheet&) = delete;
    TraceSheet& operator=(const TraceSheet&) = delete;
    ~TraceSheet() override;

 private:
    void takeLines();

    CKorvelDoc& document_;
    QCheckBox pause_;
    QTimer timer_;
};

}  // namespace korvel
