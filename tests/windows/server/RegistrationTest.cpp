#include <aclapi.h>

#include "platform/win32/WideText.h"
#include "windows/server/RegistrySnapshot.h"
#include "windows/server/ServerTest.h"

namespace kestrel::test {
namespace {

constexpr wchar_t kClass[] = L"Software\\Classes\\CLSID\\{6BBBE050-DF52-405C-80A0-AB99189200DC}";
constexpr wchar_t kName[] = L"Software\\Classes\\KestrelDll.clsKestrelDll";
constexpr wchar_t kScratch[] = L"Software\\Kestrel registration test";

/// Exit code of the system's own tool.
DWORD Regsvr32(const std::wstring& option) {
    std::wstring line = L"regsvr32.exe /s " + option + L" \"" + DllPath() + L"\"";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION started{};
    EXPECT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &start, &started));
    const win32::Handle process(started.hProcess), thread(started.hThread);
    WaitForSingleObject(process.Get(), 60'000);
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process.Get(), &code);
    return code;
}

bool Has(HKEY root, const wchar_t* path) {
    win32::RegistryKey key;
    return RegOpenKeyExW(root, path, 0, KEY_READ, key.Out()) == ERROR_SUCCESS;
}

class RegistrationTest : public ServerTest {
 protected:
    RegistrationTest() {
        static_cast<void>(dll_.Unregister());  // of a run that was cut short
        // Always there on Windows; Wine makes it when it is first needed.
        win32::RegistryKey user;
        RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Classes", 0, nullptr, 0, KEY_READ, nullptr,
                        user.Out(), nullptr);
    }
    ~RegistrationTest() override { static_cast<void>(dll_.Unregister()); }
};

TEST_F(RegistrationTest, ComesAndGoesWithoutATrace) {
    const RegistrySnapshot before = TakeRegistrySnapshot();
    ASSERT_EQ(Regsvr32(L""), 0u);
    EXPECT_EQ(Regsvr32(L""), 0u) << "again";
    const RegistrySnapshot registered = TakeRegistrySnapshot();

    const std::wstring clsid = L"machine\\CLSID\\{6BBBE050-DF52-405C-80A0-AB99189200DC}";
    const struct {
        std::wstring key, value;
    } rows[] = {
        {clsid + L"\\InprocServer32 ", DllPath()},
        {clsid + L"\\InprocServer32 ThreadingModel", L"Apartment"},
        {clsid + L"\\ProgID ", L"KestrelDll.clsKestrelDll"},
        {clsid + L"\\TypeLib ", L"{C75D474F-E6E5-4D5D-A64F-6FCC539B0B87}"},
        {L"machine\\KestrelDll.clsKestrelDll\\CLSID ", L"{6BBBE050-DF52-405C-80A0-AB99189200DC}"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(win32::Utf8(row.key));
        ASSERT_TRUE(registered.contains(row.key));
        EXPECT_EQ(registered.at(row.key), row.value);
    }
    ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(LIBID_KestrelDll, 1, 0, LOCALE_NEUTRAL, library.Out()), S_OK);
    library.Reset();

    EXPECT_EQ(Regsvr32(L"/u"), 0u);
    EXPECT_EQ(Difference(before, TakeRegistrySnapshot()), "");
    EXPECT_EQ(Regsvr32(L"/u"), 0u) << "when nothing is registered";
}

/// Has this process take a key of the test's own for a root of the registry.
class RootReplaced {
 public:
    RootReplaced(HKEY root, const wchar_t* path) : root_(root), path_(path) {
        RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, key_.Out(),
                        nullptr);
        EXPECT_EQ(RegOverridePredefKey(root_, key_.Get()), ERROR_SUCCESS);
    }
    ~RootReplaced() {
        EXPECT_EQ(RegOverridePredefKey(root_, nullptr), ERROR_SUCCESS);
        EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, path_), ERROR_SUCCESS);
    }
    RootReplaced(const RootReplaced&) = delete;
    RootReplaced& operator=(const RootReplaced&) = delete;

    /// A key below the replaced root.
    win32::RegistryKey Create(const wchar_t* path, DWORD options = REG_OPTION_NON_VOLATILE) const {
        win32::RegistryKey key;
        EXPECT_EQ(RegCreateKeyExW(key_.Get(), path, 0, nullptr, options, KEY_ALL_ACCESS, nullptr,
                                  key.Out(), nullptr),
                  ERROR_SUCCESS);
        return key;
    }
    bool Has(const wchar_t* path) const { return kestrel::test::Has(key_.Get(), path); }

 private:
    HKEY root_;
    const wchar_t* path_;
    win32::RegistryKey key_;
};

TEST_F(RegistrationTest, OneThatFailsHalfWayIsUndone) {
    {
        const RootReplaced machine(HKEY_LOCAL_MACHINE, kScratch);
        // What is to last cannot be made below what ends with the session.
        machine.Create(kName, REG_OPTION_VOLATILE);
        EXPECT_EQ(dll_.Register(), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
        EXPECT_FALSE(machine.Has(kClass));
        EXPECT_FALSE(machine.Has(kName));
    }
    for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        EXPECT_FALSE(Has(root, kClass));
        EXPECT_FALSE(Has(root, kName));
    }
}

void DenyWriting(HKEY key) {
    wchar_t everyone[] = L"EVERYONE";
    EXPLICIT_ACCESSW rules[2]{};
    for (EXPLICIT_ACCESSW& rule : rules) {
        rule.Trustee.TrusteeForm = TRUSTEE_IS_NAME;
        rule.Trustee.ptstrName = everyone;
    }
    rules[0].grfAccessPermissions = KEY_SET_VALUE | KEY_CREATE_SUB_KEY;
    rules[0].grfAccessMode = DENY_ACCESS;
    rules[1].grfAccessPermissions = KEY_ALL_ACCESS;
    rules[1].grfAccessMode = GRANT_ACCESS;
    ACL* list = nullptr;
    ASSERT_EQ(SetEntriesInAclW(2, rules, nullptr, &list), static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(SetSecurityInfo(key, SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                              list, nullptr),
              static_cast<DWORD>(ERROR_SUCCESS));
    LocalFree(list);
}

TEST_F(RegistrationTest, IsForTheUserWhereTheMachineIsClosed) {
    {
        const RootReplaced machine(HKEY_LOCAL_MACHINE, kScratch);
        const auto closed = machine.Create(L"Software\\Classes\\KestrelDll.clsKestrelDll");
        DenyWriting(closed.Get());
        EXPECT_EQ(dll_.Register(), S_OK);
        EXPECT_FALSE(machine.Has(kClass));
        EXPECT_TRUE(Has(HKEY_CURRENT_USER, kClass));
        EXPECT_TRUE(Has(HKEY_CURRENT_USER, kName));
    }
    EXPECT_EQ(dll_.Unregister(), S_OK);
    EXPECT_FALSE(Has(HKEY_CURRENT_USER, kClass));
    EXPECT_FALSE(Has(HKEY_CURRENT_USER, kName));
}

TEST_F(RegistrationTest, AnEarlierOneForTheUserGivesWay) {
    win32::RegistryKey earlier;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, kClass, 0, nullptr, 0, KEY_WRITE, nullptr,
                              earlier.Out(), nullptr),
              ERROR_SUCCESS);
    earlier.Close();
    EXPECT_EQ(dll_.Register(), S_OK);
    EXPECT_FALSE(Has(HKEY_CURRENT_USER, kClass));
}

#ifdef _WIN64  // a 32-bit Wine knows no other
TEST_F(RegistrationTest, LeavesTheNameToADllOfTheOtherWordSize) {
    win32::RegistryKey other;
    ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, kClass, 0, nullptr, 0,
                              KEY_WRITE | KEY_WOW64_32KEY, nullptr, other.Out(), nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(dll_.Register(), S_OK);
    EXPECT_EQ(dll_.Unregister(), S_OK);
    EXPECT_TRUE(Has(HKEY_LOCAL_MACHINE, kName));
    EXPECT_FALSE(Has(HKEY_LOCAL_MACHINE, kClass));
    EXPECT_EQ(RegDeleteKeyExW(HKEY_LOCAL_MACHINE, kClass, KEY_WOW64_32KEY, 0), ERROR_SUCCESS);
    EXPECT_EQ(dll_.Unregister(), S_OK);
    EXPECT_FALSE(Has(HKEY_LOCAL_MACHINE, kName));
}
#endif

}  // namespace
}  // namespace kestrel::test
