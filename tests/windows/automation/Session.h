#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/HostModel.h"
#include "support/FakeDesktop.h"
#include "windows/support/Interception.h"
#include "windows/support/OfferedHost.h"

namespace kestrel::test {

/// A desktop whose user agrees to everything, with files in memory.
class AgreeingDesktop : public FakeDesktop {
 public:
    std::map<std::string, std::string> files;

    bool FileIsThere(const std::string& path) override { return files.contains(path); }
    std::string ReadFile(const std::string& path) override { return files.at(path); }
    void WriteFile(const std::string& path, std::string_view bytes) override {
        files[path] = bytes;
    }
    using FakeDesktop::ShowMessage;
    MessageAnswer ShowMessage(const std::string& text, MessageButtons buttons,
                              const std::string& title) override {
        answers = {buttons == MessageButtons::YesNo ? MessageAnswer::Yes : MessageAnswer::Ok};
        return FakeDesktop::ShowMessage(text, buttons, title);
    }
};

/// A planner's session with the reference host on a small plan with a summary, costs, both kinds
/// of group and the log on: an analysis of two iterations, then every command.
class Session {
 public:
    Session();

    /// The host by way of `between`.
    host::ApplicationPtr Attach(const std::shared_ptr<Interception>& between);
    void RunDirectly();
    /// Through Automation, each call by way of `between`.
    void RunThrough(const std::shared_ptr<Interception>& between);

    /// Sentences of failures in the order in which they came.
    std::vector<std::string> failures;
    /// Everything that the session has left behind in plan, settings, messages and files.
    std::string Outcome();

    refhost::test::OfferedHost offered;
    AgreeingDesktop desktop;

 private:
    void Run(const std::function<host::ApplicationPtr()>& attach);
    /// The sentence of an error is kept.
    void Try(const std::function<void()>& step);
};

}  // namespace kestrel::test
