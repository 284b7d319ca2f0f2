#pragma once

#include "ui/controls/Control.h"

namespace kestrel::ui {

/// A line of text. Its access key leads to the next control in tab order.
class Label : public Control {
 public:
    using Control::Control;
};

/// A captioned box around other controls; it decorates and holds nothing.
class Frame : public Control {
 public:
    using Control::Control;
};

}  // namespace kestrel::ui
