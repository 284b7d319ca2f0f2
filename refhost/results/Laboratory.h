#pragma once

#include <memory>
#include <string>

#include "host/clsKestrelDll.h"
#include "refhost/engine/Analysis.h"
#include "refhost/engine/NoSettings.h"

namespace refhost {

/// A host and an add-in of its own with a copy of a plan, for analyses beside the user's: nothing
/// of them reaches the user's plan or settings. Used by one thread at a time.
class Laboratory {
 public:
    /// The desktop must outlive it. Raises kestrel::DataError for a plan that cannot be scheduled.
    Laboratory(PlanData plan, kestrel::Desktop& desktop);

    /// Analyses the plan with `registerText` as its register.
    AnalysisResults Run(const std::string& registerText, const AnalysisSettings& settings,
                        AnalysisWatcher* watcher);

    /// With the copy open.
    ReferenceHost& Host() { return host_; }

 private:
    class NoForms : public kestrel::ui::FormRunner {
        void ShowModal(kestrel::ui::Form& form) override { form.Close(); }
    };

    NoSettings noSettings_;
    ReferenceHost host_;
    NoForms forms_;
    kestrel::clsKestrelDll addIn_;
};

}  // namespace refhost
