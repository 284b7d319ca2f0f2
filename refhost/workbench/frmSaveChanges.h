#pragma once

#include <string>

#include "ui/controls/Button.h"
#include "ui/controls/Form.h"
#include "ui/controls/Label.h"

namespace refhost {

/// Asks what is to become of unsaved changes. Closing the window by its own means is Cancel.
class frmSaveChanges : public kestrel::ui::Form {
 public:
    enum class Answer { Cancel, Save, Discard };

    explicit frmSaveChanges(const std::string& planName);

    Answer Result() const { return result_; }

    kestrel::ui::Label lblQuestion{"lblQuestion"};
    kestrel::ui::Button cmdSave{"cmdSave", "&Save"};
    kestrel::ui::Button cmdDiscard{"cmdDiscard", "&Don't Save"};
    kestrel::ui::Button cmdCancel{"cmdCancel", "Cancel"};

 private:
    void AnswerWith(Answer answer);

    Answer result_ = Answer::Cancel;
};

}  // namespace refhost
