#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "ui/controls/Form.h"
#include "ui/controls/ProgressBar.h"
#include "ui/controls/TextBox.h"

namespace kestrel::ui {

/// Lets the user interface handle what is waiting for it, so that a form repaints while a long
/// computation runs on the same thread. Given by whoever shows the form.
using ProcessEvents = std::function<void()>;

/// How far a long computation has come. A user who closes the window asks the computation to stop;
/// it looks at CancelRequested() when it likes, and before it closes the window itself, because
/// every closing counts.
class frmProgress : public Form {
 public:
    explicit frmProgress(ProcessEvents processEvents = {});

    void SetPos(std::int32_t position);
    void SetMessage(const std::string& message, std::int32_t position);
    /// The bar runs from 0 to `maximum` and starts at 0.
    void SetProgressRange(std::int32_t maximum, const std::string& message);

    void RequestCancel() { cancelRequested_ = true; }
    bool CancelRequested() const { return cancelRequested_; }

    TextBox txtMessage{"txtMessage"};
    ProgressBar ProgressBar1{"ProgressBar1"};

 protected:
    void Form_Load() override { cancelRequested_ = false; }
    void Form_Unload() override { RequestCancel(); }

 private:
    void LetEventsIn();

    ProcessEvents processEvents_;
    bool cancelRequested_ = false;
};

}  // namespace kestrel::ui
