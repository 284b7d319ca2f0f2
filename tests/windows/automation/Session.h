#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/AnalysisFixture.h"
#include "host/clsKestrelDll.h"
#include "support/ScriptedRunner.h"
#include "windows/support/ScriptedEvents.h"
#include "windows/support/ScriptedHost.h"

namespace kestrel::test {

enum EventId : DISPID { kBefore = 1, kIteration, kAfter };

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

/// A planner's session on a small plan with a summary, costs, both kinds of group and the log on:
/// an analysis of two iterations, then every command.
class Session {
 public:
    FakeHost host;
    AgreeingDesktop desktop;

    Session();

    /// `raise` raises an event of the host and answers the sentence of its failure.
    void Run(const std::function<host::ApplicationPtr()>& attach,
             const std::function<std::string(EventId)>& raise);
    /// An event of an analysis, what it draws included.
    void Raise(const std::function<std::string(EventId)>& raise, EventId event);

    /// Sentences of failures in the order in which they came.
    std::vector<std::string> failures;
    /// Everything that the session has left behind in plan, settings, messages and files.
    std::string Outcome();

 private:
    void RunCommands(clsKestrelDll& addin);
    void DrawNumbers();

    ScriptedRunner runner_;
    int iteration_ = 0;
};

/// The same session through the host's own types.
void RunDirectly(Session& session);

/// And through scripted objects, none of which may be left at the end.
class AutomationSession {
 public:
    Session session;
    std::shared_ptr<Script> script = std::make_shared<Script>();

    AutomationSession();
    ~AutomationSession();
    void Run();
    host::ApplicationPtr Attach();
    std::string Raise(EventId event);

 private:
    ComPtr<EventSource> events_;
    ComPtr<IDispatch> application_;
    ComPtr<IDispatch> plan_;
};

}  // namespace kestrel::test
