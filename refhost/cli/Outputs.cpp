#include "refhost/cli/Outputs.h"

#include <algorithm>
#include <cstdio>

#include "base/OneLine.h"
#include "platform/Files.h"

namespace refhost {
namespace {

constexpr const char* kPlanWord = "PLAN";

[[noreturn]] void Refuse(const std::string& name, const std::string& other, bool isRead) {
    if (isRead)
        throw UsageError(name + " names the file that is read as " + other + "; name another");
    throw UsageError(name + " and " + other + " name one file; name two");
}

}  // namespace

Outputs::Outputs(const Arguments& arguments, const ArgumentRules& rules) {
    struct Target {
        const char* name;
        Use use;
    };
    std::vector<Target> targets;
    for (const WordRule& word : rules.words) {
        if (word.use == Use::Output) targets.push_back({word.name, word.use});
        if (word.use == Use::Input || word.use == Use::Plan)
            NoteInput(word.name, arguments.Word(word.name));
    }
    for (const OptionRule& option : rules.options) {
        if (!arguments.Has(option.name)) continue;
        if (option.use == Use::Output || option.use == Use::Plan)
            targets.push_back({option.name, option.use});
        if (option.use == Use::Input) NoteInput(option.name, arguments.Word(option.name));
    }
    for (const Target& target : targets)
        Add(target.name, arguments.Word(target.name), target.use == Use::Plan);
}

void Outputs::NoteInput(const std::string& name, const std::string& path) {
    const auto isStream = [](const Named& other) { return other.identity == "-"; };
    if (path == "-" && std::any_of(named_.begin(), named_.end(), isStream))
        throw UsageError("standard input can be read only once");
    named_.push_back({name, path == "-" ? path : kestrel::FileIdentity(path)});
    if (const std::string stream = kestrel::StandardInputIdentity(); path == "-" && !stream.empty())
        named_.push_back({name, stream});  // the file that it was redirected from
}

Outputs::File& Outputs::AddBeside(const std::string& name, const std::string& path) {
    return Add(name + " beside it", path, false);
}

Outputs::File& Outputs::Add(const std::string& name, const std::string& path, bool mayBePlan) {
    const std::string stream = kestrel::StandardOutputIdentity();
    const std::string identity = path != "-"      ? kestrel::FileIdentity(path)
                                 : stream.empty() ? "stdout"
                                                  : stream;
    for (const Named& other : named_) {
        if (identity.empty() || other.identity != identity) continue;
        const bool isPlan = !other.file && other.name == kPlanWord;
        if (!isPlan || !mayBePlan) Refuse(name, other.name, !other.file);
        replacesPlan_ = true;
    }
    takesStandardOutput_ |= path == "-" || (!stream.empty() && identity == stream);
    File& file = path == "-" ? files_.AddStandardOutput() : files_.Add(path);
    named_.push_back({name, identity, &file});
    return file;
}

Outputs::File* Outputs::Find(const std::string& name) {
    for (const Named& named : named_)
        if (named.file && named.name == name) return named.file;
    return nullptr;
}

void Outputs::Commit() {
    if (!told_.empty() && !takesStandardOutput_) files_.AddStandardOutput().Write(told_);
    files_.Commit();
    if (takesStandardOutput_) std::fputs(told_.c_str(), stderr);
}

void WriteStandardOutput(std::string_view text) {
    kestrel::FileSet set;
    set.AddStandardOutput().Write(text);
    set.Commit();
}

void TellError(std::string_view text) noexcept {
    try {
        std::fputs((kestrel::OneLine(text) + "\n").c_str(), stderr);
    } catch (const std::bad_alloc&) {
        std::fputs("There is not enough memory to tell what went wrong.\n", stderr);
    }
}

}  // namespace refhost
