#include "refhost/results/Laboratory.h"

#include "store/RegisterDocument.h"
#include "ui/controls/Form.h"

namespace refhost {

Laboratory::Laboratory(PlanData plan, kestrel::Desktop& desktop)
    : host_(noSettings_, ""),
      addIn_([this] { return std::shared_ptr<host::Application>(&host_, [](auto*) {}); }, desktop,
             forms_) {
    host_.Open(std::make_shared<HostPlan>(std::move(plan)));
    addIn_.LaunchStartSchedulon();
}

AnalysisResults Laboratory::Run(const std::string& registerText, const AnalysisSettings& settings,
                                AnalysisWatcher* watcher) {
    host_.OpenPlan()->SetText(kestrel::kRegisterText, registerText);
    return RunAnalysis(host_, settings, watcher);
}

}  // namespace refhost
