#pragma once

#include <cstdint>

#include "ui/controls/Button.h"
#include "ui/controls/Form.h"
#include "ui/controls/Label.h"

namespace kestrel::ui {

/// A question that is asked about several items in turn. The caller sets the caption of lbMessage,
/// shows the form modally and reads Result() afterwards.
class frmMessageBox : public Form {
 public:
    enum Answer : std::int16_t { kYes = 1, kNo = 2, kYesToAll = 3, kNoToAll = 4 };

    frmMessageBox();

    /// Of the button pressed last; closing the window by its own means counts as "Cancel". 0 as
    /// long as the form has not been answered.
    std::int16_t Result() const { return result_; }

    Label lbMessage{"lbMessage"};
    Button cmdYes{"cmdYes", "&Yes"};
    Button cmdNo{"cmdNo", "&No"};
    Button cmdYesAll{"cmdYesAll", "Yes to &All"};
    Button cmdNotoAll{"cmdNotoAll", "Cancel"};  ///< the caption is meant: no to all

 private:
    void AnswerWith(std::int16_t result);

    std::int16_t result_ = 0;
};

}  // namespace kestrel::ui
