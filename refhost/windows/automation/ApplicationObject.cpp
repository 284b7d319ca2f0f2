#include "refhost/windows/automation/ApplicationObject.h"

#include "platform/win32/Enumerator.h"
#include "refhost/windows/automation/DispatchIds.h"
#include "refhost/windows/automation/Failures.h"
#include "refhost/windows/automation/PlanObjects.h"

#include <Schedulon.h>

namespace refhost::automation {

using kestrel::win32::ComPtr;

namespace {

struct PointTraits {
    using Interface = IEnumConnectionPoints;
    using Element = ComPtr<IConnectionPoint>;
    using Out = IConnectionPoint*;
    static void Copy(const Element& element, IConnectionPoint*& out) {
        out = ComPtr<IConnectionPoint>(element).Detach();
    }
};

}  // namespace

ApplicationObject::ApplicationObject(std::shared_ptr<AutomationServer> server)
    : AutomationObject(std::move(server), DIID__Application),
      events_(Server(), *AsDispatch(), *this) {
    Server().application_ = this;
}

ApplicationObject::~ApplicationObject() { Server().application_ = nullptr; }

IUnknown* ApplicationObject::OtherInterface(REFIID iid) noexcept {
    IUnknown* const found =
        kestrel::win32::FindInterface<IProvideClassInfo2, IConnectionPointContainer>(this, iid);
    return found ? found : AutomationObject::OtherInterface(iid);
}

HRESULT ApplicationObject::GetClassInfo(ITypeInfo** info) noexcept {
    if (!info) return E_POINTER;
    *info = nullptr;
    return Guarded(nullptr, [&] {
        ComPtr<ITypeInfo> found = Server().Types().Info(CLSID_Application);
        if (!found) throw CallFailure{TYPE_E_ELEMENTNOTFOUND};
        *info = found.Detach();
    });
}

HRESULT ApplicationObject::GetGUID(DWORD kind, GUID* guid) noexcept {
    if (!guid) return E_POINTER;
    *guid = GUID_NULL;
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *guid = DIID__ApplicationEvents;
    return S_OK;
}

HRESULT ApplicationObject::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
    if (!points) return E_POINTER;
    *points = nullptr;
    return Guarded(nullptr, [&] {
        *points =
            kestrel::win32::Enumerator<PointTraits>::Make({ComPtr<IConnectionPoint>(&events_)})
                .Detach();
    });
}

HRESULT ApplicationObject::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept {
    if (!point) return E_POINTER;
    *point = nullptr;
    if (iid != DIID__ApplicationEvents) return CONNECT_E_NOCONNECTION;
    *point = ComPtr<IConnectionPoint>(&events_).Detach();
    return S_OK;
}

void ApplicationObject::Run(DISPID id, WORD kinds, Invocation& call) {
    static constexpr Member<ApplicationObject> kMembers[] = {
        {ID_APPLICATION_ACTIVEPLAN, kGet, 0, 0,
         [](auto& o, auto& c) { c.Answer(o.Server().ActivePlan()); }},
        {ID_APPLICATION_PATH, kGet, 0, 0, [](auto& o, auto& c) { c.Answer(o.Host().Path()); }},
        {ID_APPLICATION_GETSETTING, kCall, 4, 4,
         [](auto& o, auto& c) {
             c.Answer(o.Host().GetSetting(c.Text(0), c.Text(1), c.Text(2), c.Text(3)));
         }},
        {ID_APPLICATION_SAVESETTING, kCall, 4, 4,
         [](auto& o, auto& c) {
             o.Host().SaveSetting(c.Text(0), c.Text(1), c.Text(2), c.Text(3));
         }},
        {ID_APPLICATION_VERSIONMAJOR, kGet, 0, 0,
         [](auto& o, auto& c) { c.Answer(o.Host().VersionMajor()); }},
        {ID_APPLICATION_VERSIONMINOR, kGet, 0, 0,
         [](auto& o, auto& c) { c.Answer(o.Host().VersionMinor()); }},
        {ID_APPLICATION_VERSIONREVISION, kGet, 0, 0,
         [](auto& o, auto& c) { c.Answer(o.Host().VersionRevision()); }},
        {ID_APPLICATION_BUSY, kGet, 0, 0, [](auto& o, auto& c) { c.Answer(o.Host().Busy()); }},
        {ID_APPLICATION_BUSY, kPut, 1, 1, [](auto& o, auto& c) { o.Host().PutBusy(c.Truth(0)); }},
        {ID_APPLICATION_STATUSTEXT, kGet, 0, 0,
         [](auto& o, auto& c) { c.Answer(o.Host().StatusText()); }},
        {ID_APPLICATION_STATUSTEXT, kPut, 1, 1,
         [](auto& o, auto& c) { o.Host().PutStatusText(c.Text(0)); }},
        {ID_APPLICATION_OPEN, kCall, 1, 1,
         [](auto& o, auto& c) {
             o.Program().OpenPlan(c.Text(0));
             c.Answer(o.Server().ActivePlan());
         }},
        {ID_APPLICATION_VISIBLE, kGet, 0, 0,
         [](auto& o, auto& c) { c.Answer(o.Program().Visible()); }},
        {ID_APPLICATION_VISIBLE, kPut, 1, 1,
         [](auto& o, auto& c) { o.Program().PutVisible(c.Truth(0)); }},
        {ID_APPLICATION_QUIT, kCall, 0, 0, [](auto& o, auto&) { o.Program().Quit(); }},
    };
    RunMember<ApplicationObject>(kMembers, *this, id, kinds, call);
}

}  // namespace refhost::automation
