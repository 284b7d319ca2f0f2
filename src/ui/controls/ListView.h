#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "ui/controls/Control.h"
#include "util/Colour.h"

namespace kestrel::ui {

/// Lines of one column below a header. Lines count from 1; an index beyond the last raises
/// std::out_of_range.
class ListView : public Control {
 public:
    struct Item {
        std::string text;
        Colour colour = kSystemWindowText;
    };

    explicit ListView(std::string name) : Control(std::move(name)) {}

    int Count() const { return static_cast<int>(items_.size()); }
    const Item& At(int index) const { return items_.at(Position(index)); }

    void Add(std::string text) {
        items_.push_back({std::move(text)});
        Changed();
    }
    virtual void Clear() {
        items_.clear();
        Changed();
    }
    void SetText(int index, std::string text) {
        items_.at(Position(index)).text = std::move(text);
        Changed();
    }
    void SetColour(int index, Colour colour) {
        items_.at(Position(index)).colour = colour;
        Changed();
    }

    int HeaderWidth() const { return headerWidth_; }
    void SetHeaderWidth(int width) {
        headerWidth_ = width;
        Changed();
    }

 private:
    static std::size_t Position(int index) { return static_cast<std::size_t>(index) - 1; }

    std::vector<Item> items_;
    int headerWidth_ = 0;
};

}  // namespace kestrel::ui
