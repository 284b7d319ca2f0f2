#pragma once

#include "refhost/windows/automation/OfferedPlan.h"

/// The objects of a plan. Each function answers the object of that part of the plan; positions
/// count from 0.
namespace refhost::automation {

using Object = kestrel::win32::ComPtr<IDispatch>;

Object OfferPlan(OfferedPlan& plan);
Object OfferTasks(OfferedPlan& plan);
Object OfferTask(OfferedPlan& plan, std::size_t task);
Object OfferCostItems(OfferedPlan& plan, std::size_t task);
Object OfferUserValues(OfferedPlan& plan, std::size_t task);
Object OfferSummaryTask(OfferedPlan& plan);
Object OfferRiskAnalysis(OfferedPlan& plan);
Object OfferGroups(OfferedPlan& plan);
Object OfferGroup(OfferedPlan& plan, const host::GroupPtr& group);
Object OfferUserFields(OfferedPlan& plan);
Object OfferView(OfferedPlan& plan);

}  // namespace refhost::automation
