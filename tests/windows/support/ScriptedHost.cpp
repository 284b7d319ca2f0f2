#include "windows/support/ScriptedHost.h"

namespace kestrel::test {
namespace {

ComPtr<ScriptedDispatch> Make(const ScriptPtr& script, const char* type) {
    return ComPtr<ScriptedDispatch>(new ScriptedDispatch(script, type));
}

// An object of the model as a scripted one; nothing stays nothing.
ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::CostItem> model);
ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::UserValues> model);
ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::Task> model);
ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::TaskCollection> model);
ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::Distribution> model);
ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::Member> model);
ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::MemberCollection> model);
ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::Group> model);
ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::GroupCollection> model);
ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::UserFieldDefinition> model);
ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::UserFieldDefinitions> model);
ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::View> model);
ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::SummaryTask> model);
ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::RiskAnalysis> model);

/// A property of the model, read.
template <class Type, class Value>
void Reads(ScriptedDispatch& object, const char* name, std::shared_ptr<Type> model,
           Value (Type::*get)()) {
    object.On(name, [=](ScriptedCall& call) { call.Answer((*model.*get)()); });
}

/// A property of the model that is an object.
template <class Type, class Child>
void Opens(ScriptedDispatch& object, const char* name, ScriptPtr script,
           std::shared_ptr<Type> model, std::shared_ptr<Child> (Type::*get)()) {
    object.On(name, [=](ScriptedCall& call) { call.Answer(Show(script, (*model.*get)())); });
}

ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::CostItem> item) {
    auto object = Make(script, "CostItem");
    object->On("Cost", [item](ScriptedCall& call) {
        if (call.IsPut()) return item->PutCost(call.Number(0));
        call.Answer(item->Cost());
    });
    return object.Get();
}

ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::UserValues> values) {
    auto object = Make(script, "UserValues");
    object->On("Item", [values](ScriptedCall& call) {
        if (call.IsPut()) return values->PutItem(call.Text(0), call.Text(1));
        call.Answer(values->Item(call.Text(0)));
    });
    return object.Get();
}

template <class Element>
void AddEnumerator(ScriptedDispatch& object, ScriptPtr script, std::vector<Element> elements) {
    object.On("_NewEnum", [script, elements](ScriptedCall& call) {
        std::vector<ComPtr<IDispatch>> shown;
        for (const Element& element : elements) shown.push_back(Show(script, element));
        call.Answer(MakeEnumerator(script, shown));
    });
}

template <class Element>
ComPtr<IDispatch> ShowList(ScriptPtr script, const char* type, std::vector<Element> elements) {
    auto object = Make(script, type);
    AddEnumerator(*object, script, std::move(elements));
    return object.Get();
}

ComPtr<IDispatch> Show(ScriptPtr script, host::TaskPtr task) {
    if (!task) return nullptr;
    auto object = Make(script, "Task");
    Reads(*object, "ID", task, &host::Task::ID);
    Reads(*object, "Name", task, &host::Task::Name);
    object->On("Duration", [task](ScriptedCall& call) {
        if (call.IsPut()) return task->PutDuration(call.Int32(0));
        call.Answer(task->Duration());
    });
    Reads(*object, "TaskType", task, &host::Task::TaskType);
    object->On("ChildTasks", [=](ScriptedCall& call) {
        call.Answer(ShowList(script, "ChildTasks", task->ChildTasks()));
    });
    Opens(*object, "UserValues", script, task, &host::Task::UserValues);
    object->On("CostItems", [=](ScriptedCall& call) {
        call.Answer(ShowList(script, "CostItems", task->CostItems()));
    });
    return object.Get();
}

ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::TaskCollection> tasks) {
    auto object = Make(script, "Tasks");
    Reads(*object, "Count", tasks, &host::TaskCollection::Count);
    object->On("Item", [=](ScriptedCall& call) {
        call.Answer(Show(script, call.At(0).vt == VT_BSTR ? tasks->Item(call.Text(0))
                                                          : tasks->Item(call.Int32(0))));
    });
    object->On("_NewEnum", [=](ScriptedCall& call) {
        std::vector<ComPtr<IDispatch>> shown;
        for (const auto& task : tasks->Enumerate()) shown.push_back(Show(script, task));
        call.Answer(MakeEnumerator(script, shown));
    });
    return object.Get();
}

ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::Distribution> distribution) {
    if (!distribution) return nullptr;
    auto object = Make(script, "Distribution");
    object->On("Shape",
               [distribution](ScriptedCall& call) { distribution->PutShape(call.Int16(0)); });
    object->On("Minimum",
               [distribution](ScriptedCall& call) { distribution->PutMinimum(call.Number(0)); });
    object->On("MostLikely",
               [distribution](ScriptedCall& call) { distribution->PutMostLikely(call.Number(0)); });
    object->On("Maximum",
               [distribution](ScriptedCall& call) { distribution->PutMaximum(call.Number(0)); });
    Reads(*object, "Value", distribution, &host::Distribution::Value);
    return object.Get();
}

ComPtr<IDispatch> Show(ScriptPtr script, host::MemberPtr member) {
    if (!member) return nullptr;
    auto object = Make(script, "Member");
    object->On("Value", [member](ScriptedCall& call) { member->PutValue(call.Number(0)); });
    Reads(*object, "SampledValue", member, &host::Member::SampledValue);
    Opens(*object, "Group", script, member, &host::Member::Group);
    object->On("Distribution", [=](ScriptedCall& call) {
        call.Answer(Show(script, member->Distribution(call.Truth(0))));
    });
    return object.Get();
}

ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::MemberCollection> members) {
    auto object = Make(script, "Members");
    object->On("Item", [=](ScriptedCall& call) {
        call.Answer(Show(script, call.At(0).vt == VT_BSTR ? members->Item(call.Text(0))
                                                          : members->Item(call.Int32(0))));
    });
    object->On("Add",
               [=](ScriptedCall& call) { call.Answer(Show(script, members->Add(call.Text(0)))); });
    AddEnumerator(*object, script, members->Enumerate());
    return object.Get();
}

ComPtr<IDispatch> Show(ScriptPtr script, host::GroupPtr group) {
    if (!group) return nullptr;
    auto object = Make(script, "Group");
    Reads(*object, "Name", group, &host::Group::Name);
    object->On("Description", [group](ScriptedCall& call) { group->PutDescription(call.Text(0)); });
    object->On("Flagged", [group](ScriptedCall& call) { group->PutFlagged(call.Truth(0)); });
    Opens(*object, "Members", script, group, &host::Group::Members);
    return object.Get();
}

ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::GroupCollection> groups) {
    auto object = Make(script, "Groups");
    object->On("Item",
               [=](ScriptedCall& call) { call.Answer(Show(script, groups->Item(call.Text(0)))); });
    object->On("Add",
               [=](ScriptedCall& call) { call.Answer(Show(script, groups->Add(call.Text(0)))); });
    object->On("Remove", [=](ScriptedCall& call) { groups->Remove(call.Text(0)); });
    return object.Get();
}

ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::UserFieldDefinition> field) {
    if (!field) return nullptr;
    auto object = Make(script, "UserFieldDefinition");
    Reads(*object, "Name", field, &host::UserFieldDefinition::Name);
    return object.Get();
}

ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::UserFieldDefinitions> fields) {
    auto object = Make(script, "UserFieldDefinitions");
    object->On("Item",
               [=](ScriptedCall& call) { call.Answer(Show(script, fields->Item(call.Text(0)))); });
    object->On("Add", [=](ScriptedCall& call) { fields->Add(call.Text(0), call.Int16(1)); });
    return object.Get();
}

ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::View> view) {
    auto object = Make(script, "View");
    Reads(*object, "TypeName", view, &host::View::TypeName);
    object->On("CurrentRow", [view](ScriptedCall& call) {
        if (call.IsPut()) return view->PutCurrentRow(call.Int32(0));
        call.Answer(view->CurrentRow());
    });
    return object.Get();
}

ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::SummaryTask> summary) {
    auto object = Make(script, "SummaryTask");
    object->On("Finish", [summary](ScriptedCall& call) {
        VARIANT date{};
        date.vt = VT_DATE;
        date.date = summary->Finish();
        call.AnswerRaw(date);
    });
    Reads(*object, "Cost", summary, &host::SummaryTask::Cost);
    return object.Get();
}

ComPtr<IDispatch> Show(ScriptPtr script, std::shared_ptr<host::RiskAnalysis> analysis) {
    auto object = Make(script, "RiskAnalysis");
    Reads(*object, "NextRandom", analysis, &host::RiskAnalysis::NextRandom);
    Reads(*object, "IsUpToDate", analysis, &host::RiskAnalysis::IsUpToDate);
    object->On("Options", [=](ScriptedCall& call) {
        auto options = Make(script, "AnalysisOptions");
        options->On("RecalculateAll", [shown = analysis->Options()](ScriptedCall& inner) {
            inner.Answer(shown->RecalculateAll());
        });
        call.Answer(ComPtr<IDispatch>(options.Get()));
    });
    return object.Get();
}

}  // namespace

ComPtr<ScriptedDispatch> ShowPlan(ScriptPtr script, host::PlanPtr plan) {
    if (!plan) return nullptr;
    auto object = Make(script, "Plan");
    Reads(*object, "Name", plan, &host::Plan::Name);
    Opens(*object, "Tasks", script, plan, &host::Plan::Tasks);
    object->On("GetText", [plan](ScriptedCall& call) { call.Answer(plan->GetText(call.Text(0))); });
    object->On("SetText",
               [plan](ScriptedCall& call) { plan->SetText(call.Text(0), call.Text(1)); });
    object->On("AutoCalculate",
               [plan](ScriptedCall& call) { plan->PutAutoCalculate(call.Truth(0)); });
    object->On("Recalculate", [plan](ScriptedCall&) { plan->Recalculate(); });
    object->On("RecalculateAll", [plan](ScriptedCall&) { plan->RecalculateAll(); });
    Opens(*object, "SummaryTask", script, plan, &host::Plan::SummaryTask);
    Opens(*object, "RiskAnalysis", script, plan, &host::Plan::RiskAnalysis);
    Opens(*object, "Groups", script, plan, &host::Plan::Groups);
    Opens(*object, "UserFieldDefinitions", script, plan, &host::Plan::UserFieldDefinitions);
    Opens(*object, "CurrentView", script, plan, &host::Plan::CurrentView);
    return object;
}

ComPtr<ScriptedDispatch> ShowApplication(ScriptPtr script, host::ApplicationPtr application) {
    auto object = Make(script, "Application");
    object->On("ActivePlan", [=](ScriptedCall& call) {
        call.Answer(ComPtr<IDispatch>(ShowPlan(script, application->ActivePlan()).Get()));
    });
    Reads(*object, "Path", application, &host::Application::Path);
    object->On("GetSetting", [=](ScriptedCall& call) {
        call.Answer(
            application->GetSetting(call.Text(0), call.Text(1), call.Text(2), call.Text(3)));
    });
    object->On("SaveSetting", [=](ScriptedCall& call) {
        application->SaveSetting(call.Text(0), call.Text(1), call.Text(2), call.Text(3));
    });
    Reads(*object, "VersionMajor", application, &host::Application::VersionMajor);
    Reads(*object, "VersionMinor", application, &host::Application::VersionMinor);
    Reads(*object, "VersionRevision", application, &host::Application::VersionRevision);
    object->On("Busy", [=](ScriptedCall& call) { application->PutBusy(call.Truth(0)); });
    object->On("StatusText", [=](ScriptedCall& call) { application->PutStatusText(call.Text(0)); });
    return object;
}

}  // namespace kestrel::test
