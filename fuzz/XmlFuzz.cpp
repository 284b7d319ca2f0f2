#include <algorithm>

#include "fuzz/Fuzz.h"
#include "platform/XmlMarkup.h"
#include "platform/XmlOutline.h"
#include "store/RegisterDocument.h"
#include "store/SaveLoadCommands.h"
#include "support/FakeHost.h"

/// A document: the tree, the outline that Windows builds on, the register and the assignments file.
namespace kestrel::fuzz {
namespace {

bool SameTree(const XmlNode& a, const XmlNode& b) {
    return a.name == b.name && a.uri == b.uri && a.text == b.text &&
           std::ranges::equal(a.attributes, b.attributes,
                              [](const XmlAttribute& x, const XmlAttribute& y) {
                                  return x.name == y.name && x.value == y.value;
                              }) &&
           std::ranges::equal(a.children, b.children, SameTree);
}

void CollectLines(const XmlNode& node, std::vector<int>& lines) {
    if (node.IsElement()) lines.push_back(node.line);
    for (const XmlNode& child : node.children) CollectLines(child, lines);
}

/// The outline refuses with DataError only; what the parser reads in an encoding that both know,
/// it passes and places alike.
void CheckOutline(std::string_view bytes, const XmlDocument* document) {
    std::string fault;
    XmlOutline outline;
    try {
        outline = OutlineXml(bytes);
    } catch (const DataError& error) {
        fault = error.what();
    }
    const std::string encoding = XmlMarkupText(bytes).Encoding();
    if (!document || (!encoding.empty() && encoding != "utf-8")) return;
    Require(fault.empty(), "what the parser reads has an outline, but: " + fault);
    std::vector<int> lines;
    CollectLines(document->root, lines);
    Require(lines == outline.lines, "parser and outline see the same elements on the same lines");
}

void CheckTree(MemoryDesktop& desktop, std::string_view bytes) {
    XmlDocument document;
    try {
        document = desktop.ParseXml(bytes);
    } catch (const DataError&) {
        CheckOutline(bytes, nullptr);
        return;
    }
    CheckOutline(bytes, &document);
    for (const std::string& text : {SerialiseXml(document.root), SerialiseXmlFile(document.root)})
        Require(SameTree(desktop.ParseXml(text).root, document.root),
                "a tree that is written reads the same");
}

/// The text that the plan holds once the register in it has been read and stored.
std::string StoredAgain(MemoryDesktop& desktop, test::FakePlan& plan) {
    modGlobals globals(desktop);
    LoadRegisterFromPlan(globals, plan);
    SaveRegisterToPlan(globals.RiskFactors, plan);
    return plan.texts[kRegisterText];
}

void CheckRegister(MemoryDesktop& desktop, std::string_view bytes) {
    test::FakeHost host;
    host.plan->texts[kRegisterText] = bytes;
    std::string stored;
    try {
        stored = StoredAgain(desktop, *host.plan);
    } catch (const DataError&) {
        return;
    }
    Require(StoredAgain(desktop, *host.plan) == stored, "a register that is stored reads the same");
}

constexpr const char* kFile = "assignments.xml";

void CheckAssignments(MemoryDesktop& desktop, std::string_view bytes) {
    test::FakeHost host;
    host.AddTask("1", "Dig");
    host.AddTask("a b", "Pour");
    modGlobals globals(desktop);
    globals.application = host.application;
    const auto loadAndSave = [&] {
        desktop.chosenFiles = {kFile, kFile};
        LoadRiskFactorsFromFile(globals);
        desktop.files.erase(kFile);
        desktop.chosenFiles = {kFile};
        SaveRiskFactorsToFile(globals);
        return desktop.files.contains(kFile);
    };
    desktop.files[kFile] = bytes;
    try {
        if (!loadAndSave()) return;
    } catch (const DataError&) {
        return;
    }
    const std::string saved = desktop.files[kFile];
    Require(loadAndSave() && desktop.files[kFile] == saved, "a saved file loads as it was saved");
}

}  // namespace
}  // namespace kestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kestrel::fuzz;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    MemoryDesktop desktop;
    CheckTree(desktop, bytes);
    CheckRegister(desktop, bytes);
    CheckAssignments(desktop, bytes);
    return 0;
}
