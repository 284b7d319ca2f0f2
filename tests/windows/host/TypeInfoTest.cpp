// The type library and what the objects do must say the same: a client that binds early goes by
// the one, a script by the other.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "platform/win32/Bstr.h"
#include "platform/win32/WideText.h"
#include "windows/support/OfferedHost.h"

namespace refhost::test {
namespace {

using kestrel::win32::Bstr;

std::string NameOf(ITypeInfo& type, MEMBERID id = MEMBERID_NIL) {
    Bstr name;
    EXPECT_EQ(type.GetDocumentation(id, name.Out(), nullptr, nullptr, nullptr), S_OK);
    return name.Utf8();
}

ComPtr<ITypeInfo> TypeOf(IDispatch& object) {
    ComPtr<ITypeInfo> type;
    EXPECT_EQ(object.GetTypeInfo(0, LOCALE_NEUTRAL, type.Out()), S_OK);
    return type;
}

/// One function of a dispatch interface.
struct Function {
    std::string name;
    DISPID id = 0;
    WORD kind = 0;
    std::vector<VARTYPE> parameters;  ///< without the optional ones
    std::size_t optional = 0;
    VARTYPE answer = VT_EMPTY;
    std::string answeredType;  ///< of an object
};

std::vector<Function> FunctionsOf(ITypeInfo& type) {
    std::vector<Function> functions;
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(type.GetTypeAttr(&attributes), S_OK);
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* desc = nullptr;
        EXPECT_EQ(type.GetFuncDesc(i, &desc), S_OK);
        Function function;
        function.id = desc->memid;
        function.kind = static_cast<WORD>(desc->invkind);
        function.name = NameOf(type, desc->memid);
        for (SHORT p = 0; p < desc->cParams; ++p) {
            const ELEMDESC& parameter = desc->lprgelemdescParam[p];
            if (parameter.paramdesc.wParamFlags & PARAMFLAG_FOPT)
                ++function.optional;
            else
                function.parameters.push_back(parameter.tdesc.vt);
        }
        const TYPEDESC& answer = desc->elemdescFunc.tdesc;
        function.answer = answer.vt;
        if (answer.vt == VT_PTR && answer.lptdesc->vt == VT_USERDEFINED) {
            ComPtr<ITypeInfo> answered;
            EXPECT_EQ(type.GetRefTypeInfo(answer.lptdesc->hreftype, answered.Out()), S_OK);
            function.answer = VT_DISPATCH;
            function.answeredType = NameOf(*answered);
        }
        type.ReleaseFuncDesc(desc);
        functions.push_back(std::move(function));
    }
    type.ReleaseTypeAttr(attributes);
    return functions;
}

/// Arguments of the declared types; collections take 1 as a position.
Arguments ArgumentsFor(const Function& function) {
    Arguments arguments;
    for (const VARTYPE type : function.parameters) {
        VARIANT value{};
        value.vt = type;
        if (type == VT_BSTR)
            arguments.emplace_back("other.kplan");
        else if (type == VT_VARIANT)
            arguments.emplace_back(std::int32_t{1});
        else if (type == VT_BOOL)
            arguments.emplace_back(true);
        else if (type == VT_I4)
            value.lVal = 1, arguments.emplace_back(value);
        else  // VT_I2, VT_R8: 0 suits every member
            arguments.emplace_back(value);
    }
    return arguments;
}

class Walk {
 public:
    /// Checks every function of the object's type, then every object that it answers.
    void Visit(const ComPtr<IDispatch>& object) {
        const ComPtr<ITypeInfo> type = TypeOf(*object);
        const std::string name = NameOf(*type);
        if (!visited.insert(name).second) return;
        const std::vector<Function> functions = FunctionsOf(*type);
        std::map<DISPID, WORD> kinds;
        for (const Function& function : functions) kinds[function.id] |= function.kind;
        for (const Function& function : functions) {
            SCOPED_TRACE(name + "." + function.name);
            RefusesOtherCalls(*object, function, kinds[function.id]);
            Call(*object, function);
        }
        EXPECT_EQ(Invoke(*object, 9999, DISPATCH_METHOD).code, DISP_E_MEMBERNOTFOUND) << name;
    }

    std::set<std::string> visited;

 private:
    static void RefusesOtherCalls(IDispatch& object, const Function& function, WORD declared) {
        Arguments arguments = ArgumentsFor(function);
        // Languages ask for an enumerator either way.
        if (function.id == DISPID_NEWENUM) declared |= DISPATCH_METHOD;
        for (const int kind :
             {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF})
            if ((kind & declared) == 0) {
                EXPECT_EQ(Invoke(object, function.id, static_cast<WORD>(kind), arguments).code,
                          DISP_E_MEMBERNOTFOUND)
                    << kind;
            }
        if (!arguments.empty()) {
            const Arguments fewer(arguments.begin() + 1, arguments.end());
            EXPECT_EQ(Invoke(object, function.id, function.kind, fewer).code, DISP_E_BADPARAMCOUNT);
        }
        if (function.answer == VT_DISPATCH && function.parameters.empty()) return;  // its object's
        for (std::size_t i = 0; i <= function.optional; ++i) arguments.emplace_back(1.0);
        EXPECT_EQ(Invoke(object, function.id, function.kind, arguments).code, DISP_E_BADPARAMCOUNT);
    }

    void Call(IDispatch& object, const Function& function) {
        EXPECT_EQ(IdOf(object, kestrel::win32::Wide(function.name).c_str()), function.id);
        if (function.name == "Remove" || function.name == "Add") return;  // change what is walked
        std::vector<DISPID> names;
        if (function.kind == DISPATCH_PROPERTYPUT) names.push_back(DISPID_PROPERTYPUT);
        const Answer answer =
            Invoke(object, function.id, function.kind, ArgumentsFor(function), names);
        EXPECT_EQ(answer.code, S_OK) << answer.description;
        const VARTYPE declared = function.answer == VT_VOID ? VARTYPE{VT_EMPTY} : function.answer;
        EXPECT_EQ(answer.value->vt, declared);
        if (function.answer != VT_DISPATCH) return;
        ASSERT_TRUE(answer.Object());
        EXPECT_EQ(NameOf(*TypeOf(*answer.Object())), function.answeredType);
        Visit(answer.Object());
    }
};

TEST(TypeLibrary, SaysOfEveryMemberWhatTheObjectsDo) {
    OfferedHost offered;
    const auto member = offered.Plan().GroupList().Item("G")->Members()->Item("M");
    member->Distribution(true);
    offered.Plan().GroupList().Add("M");  // the group that the member stands for
    Walk walk;
    // First, as the task that the walk itself comes by is a summary, without costs.
    walk.Visit(Follow(offered.Task("A"), {L"CostItems"}));
    walk.Visit(offered.PlanObject());
    walk.Visit(offered.application);

    automation::TypeLibrary types;
    std::set<std::string> declared;
    for (UINT i = 0; i < types.Library().GetTypeInfoCount(); ++i) {
        TYPEKIND kind{};
        ComPtr<ITypeInfo> info;
        ASSERT_EQ(types.Library().GetTypeInfoType(i, &kind), S_OK);
        ASSERT_EQ(types.Library().GetTypeInfo(i, info.Out()), S_OK);
        if (kind == TKIND_DISPATCH) declared.insert(NameOf(*info));
    }
    declared.erase("_ApplicationEvents");  // the clients' to implement
    EXPECT_EQ(walk.visited, declared);
}

}  // namespace
}  // namespace refhost::test
