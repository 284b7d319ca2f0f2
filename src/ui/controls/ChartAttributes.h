#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "util/Colour.h"

namespace kestrel::ui {

/// The named settings of a chart, of one of its axes or of one of its channels. Which names there
/// are, and what each holds, is fixed by the defaults: another name, or a value of another kind,
/// raises std::invalid_argument.
class ChartAttributes {
 public:
    using Value = std::variant<bool, double, std::string>;  ///< colours are numbers
    using Defaults = std::vector<std::pair<std::string, Value>>;

    explicit ChartAttributes(Defaults defaults) : values_(std::move(defaults)) {}

    void Set(const std::string& name, bool value) { Put(name, value); }
    void Set(const std::string& name, int value) { Put(name, static_cast<double>(value)); }
    void Set(const std::string& name, double value) { Put(name, value); }
    void Set(const std::string& name, Colour value) { Put(name, static_cast<double>(value)); }
    void Set(const std::string& name, const char* value) { Put(name, std::string(value)); }
    void Set(const std::string& name, std::string value) { Put(name, std::move(value)); }

    bool Flag(const std::string& name) const { return Get<bool>(name); }
    double Number(const std::string& name) const { return Get<double>(name); }
    const std::string& Text(const std::string& name) const { return Get<std::string>(name); }
    Colour ColourOf(const std::string& name) const { return static_cast<Colour>(Number(name)); }

 private:
    [[noreturn]] static void Refuse(const std::string& name);
    void Put(const std::string& name, Value value);
    const Value& Find(const std::string& name) const;
    template <class T>
    const T& Get(const std::string& name) const {
        const T* value = std::get_if<T>(&Find(name));
        if (!value) Refuse(name);
        return *value;
    }

    Defaults values_;
};

/// @name All attributes of each kind of object, with the values they start with
///@{
ChartAttributes::Defaults ChartDefaults();
ChartAttributes::Defaults AxisDefaults();
ChartAttributes::Defaults ChannelDefaults();
///@}

}  // namespace kestrel::ui
