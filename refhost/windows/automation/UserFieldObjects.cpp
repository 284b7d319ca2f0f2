#include "base/Errors.h"
#include "refhost/windows/automation/DispatchIds.h"
#include "refhost/windows/automation/PlanObjects.h"

#include <Schedulon.h>

namespace refhost::automation {
namespace {

/// A definition, by its position: definitions are only ever added.
class UserFieldObject final : public PlanPart {
 public:
    using PlanPart::PlanPart;

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<UserFieldObject> kMembers[] = {
            {ID_USERFIELDDEFINITION_NAME, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(o.Plan().Data().userFields[o.Position()].name); }},
        };
        RunMember<UserFieldObject>(kMembers, *this, id, kinds, call);
    }
};

class UserFieldsObject final : public PlanPart {
 public:
    using PlanPart::PlanPart;

 private:
    void Run(DISPID id, WORD kinds, Invocation& call) override {
        static constexpr Member<UserFieldsObject> kMembers[] = {
            {ID_DEFAULT, kGet, 1, 1, [](auto& o, auto& c) { c.Answer(o.Item(c)); }},
            {ID_COLLECTION_COUNT, kGet, 0, 0,
             [](auto& o, auto& c) { c.Answer(static_cast<std::int32_t>(o.Fields().size())); }},
            {ID_NEWENUM, kGet | kCall, 0, 0, [](auto& o, auto& c) { c.AnswerEnumerator(o.All()); }},
            {ID_COLLECTION_ADD, kCall, 2, 2,
             [](auto& o, auto& c) {
                 o.Plan().UserFieldDefinitions()->Add(c.StoredText(0), c.Small(1));
                 c.Answer(o.At(o.Fields().size() - 1));
             }},
        };
        RunMember<UserFieldsObject>(kMembers, *this, id, kinds, call);
    }

    const std::vector<UserField>& Fields() const { return Plan().Data().userFields; }
    Object At(std::size_t index) const {
        return Owner().Offer<UserFieldObject>({&DIID__UserFieldDefinition, index});
    }
    Object Item(const Invocation& call) const {
        if (!call.IsText(0)) {
            const std::int32_t position = call.Whole(0);
            if (position >= 1 && static_cast<std::size_t>(position) <= Fields().size())
                return At(static_cast<std::size_t>(position) - 1);
        } else {
            const std::string name = call.Text(0);
            for (std::size_t i = 0; i < Fields().size(); ++i)
                if (Fields()[i].name == name) return At(i);
        }
        throw kestrel::HostError("The plan defines no user field '" + call.Text(0) + "'.");
    }
    std::vector<Object> All() const {
        std::vector<Object> objects;
        for (std::size_t i = 0; i < Fields().size(); ++i) objects.push_back(At(i));
        return objects;
    }
};

}  // namespace

Object OfferUserFields(OfferedPlan& plan) {
    return plan.Offer<UserFieldsObject>({&DIID__UserFieldDefinitions, 0});
}

}  // namespace refhost::automation
