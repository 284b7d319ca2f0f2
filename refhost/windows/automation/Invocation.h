#pragma once

#include <windows.h>
#include <oaidl.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/win32/ComPtr.h"

namespace refhost::automation {

/// A call that cannot be made as it came: IDispatch::Invoke answers `code`.
struct CallFailure {
    HRESULT code;
    UINT argument = 0;  ///< as IDispatch::Invoke counts them, from the last
};

/// One call of a member: its arguments in the order of the member's parameters, and its answer.
/// Arguments are converted as Automation does, numbers in text with "." in every locale; what
/// cannot be converted raises CallFailure.
class Invocation {
 public:
    static constexpr unsigned kMostParameters = 4;

    /// `given` as IDispatch::Invoke has it; its arguments must outlive this.
    Invocation(const DISPPARAMS& given, VARIANT* answer) : given_(given), answer_(answer) {}

    bool HasArguments() const { return given_.cArgs != 0; }

    /// Sorts the arguments, positional and named, to `most` parameters, the value of a property
    /// put last. Raises CallFailure when one of the first `required`, or the value, is missing,
    /// or when there are too many.
    void Bind(unsigned required, unsigned most, bool isPut);

    /// Whether the parameter was given; an optional one may have been left out.
    bool Has(unsigned parameter) const { return arguments_[parameter] != nullptr; }
    bool IsText(unsigned parameter) const;
    std::int32_t Whole(unsigned parameter) const;
    std::int16_t Small(unsigned parameter) const;
    std::uint64_t Seed(unsigned parameter) const;
    double Number(unsigned parameter) const;  ///< finite
    bool Truth(unsigned parameter) const;
    std::string Text(unsigned parameter) const;
    /// Text that is stored with the plan; HostError for characters that no file can hold.
    std::string StoredText(unsigned parameter) const;

    /// @name The answer; of a caller who wants none it is dropped.
    ///@{
    void Answer(std::int32_t number);
    void Answer(std::int16_t number);
    void Answer(double number);
    void Answer(bool truth);
    void Answer(const std::string& text);
    void Answer(kestrel::win32::ComPtr<IDispatch> object);  ///< nothing: Nothing
    /// An enumerator of the objects, as `_NewEnum` answers it.
    void AnswerEnumerator(std::vector<kestrel::win32::ComPtr<IDispatch>> objects);
    void AnswerDate(double serial);
    ///@}

 private:
    void Place(unsigned parameter, UINT index, unsigned most);
    const VARIANT& Value(unsigned parameter) const;
    void Convert(unsigned parameter, VARTYPE type, VARIANT& into) const;
    [[noreturn]] void Refuse(HRESULT code, unsigned parameter) const;

    const DISPPARAMS given_;
    VARIANT* answer_;
    std::array<const VARIANT*, kMostParameters> arguments_{};
};

}  // namespace refhost::automation
