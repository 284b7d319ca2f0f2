#include <gtest/gtest.h>

#include "windows/desktop/DesktopStage.h"
#include "windows/support/ScreenReader.h"

namespace refhost::win32 {
namespace {

using kestrel::test::Announcements;
using kestrel::test::ScreenReader;
using kestrel::test::WindowUser;

enum Place { kWholeRow, kId, kName, kStart = 4, kBar = 9, kPlaces };

/// Row 0 holds the headings.
constexpr long Id(long row, long place) { return row * kPlaces + place + 1; }

void ReadTableAndBars(const ScreenReader& plan) {
    constexpr long kShown =
        STATE_SYSTEM_READONLY | STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE;
    ExpectParts(
        plan,
        {{0, "Plan", "", ROLE_SYSTEM_OUTLINE, STATE_SYSTEM_FOCUSABLE},
         {Id(0, kStart), "Start", "", ROLE_SYSTEM_COLUMNHEADER, STATE_SYSTEM_READONLY},
         {Id(0, kBar), "Gantt chart", "", ROLE_SYSTEM_COLUMNHEADER, STATE_SYSTEM_READONLY},
         {Id(1, kWholeRow), "Management and consents", "1", ROLE_SYSTEM_OUTLINEITEM,
          kShown | STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED | STATE_SYSTEM_EXPANDED},
         {Id(1, kId), "ID, Management and consents", "1000", ROLE_SYSTEM_CELL,
          kShown | STATE_SYSTEM_SELECTED},
         {Id(2, kWholeRow), "Contract award", "2", ROLE_SYSTEM_OUTLINEITEM, kShown},
         {Id(2, kBar), "Bar, Contract award", "2026-02-02 07:30", ROLE_SYSTEM_GRAPHIC, kShown},
         {Id(3, kStart), "Start, Mobilise project team", "2026-02-02 07:30", ROLE_SYSTEM_CELL,
          kShown},
         {Id(3, kBar), "Bar, Mobilise project team", "2026-02-02 07:30 to 2026-02-13 16:00",
          ROLE_SYSTEM_GRAPHIC, kShown},
         {Id(70, kWholeRow), "Fit fenders", "3", ROLE_SYSTEM_OUTLINEITEM,
          kShown | STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE}});
    EXPECT_EQ(
        plan.Description(Id(3, kWholeRow)),
        "ID 1020, Duration 10d, Start 2026-02-02 07:30, Finish 2026-02-13 16:00, Cost 48,000");
    EXPECT_EQ(plan.Beside(Id(3, kBar), NAVDIR_UP), Id(2, kBar));
    for (const long part : {Id(0, kName), Id(0, kBar), Id(3, kName), Id(3, kBar)}) {
        const RECT place = plan.Place(part);
        EXPECT_EQ(plan.At((place.left + place.right) / 2, (place.top + place.bottom) / 2), part);
    }
    const RECT row = plan.Place(Id(3, kWholeRow)), bar = plan.Place(Id(3, kBar));
    EXPECT_EQ(plan.At(row.right - 1, bar.top), Id(3, kWholeRow)) << "beside the bar";
}

TEST(PlanAccessTest, TableAndBarsAreReadAndWorkedByScreenReaders) {
    DesktopStage stage;
    stage.Work(stage.Copy("ferry-terminal.kplan"), [&](WindowUser& user) {
        stage.WaitForTitle(user, L"Eastmere ferry terminal - Kestrel");
        user.OnUi([&] {
            const ScreenReader plan(GetFocus());
            ReadTableAndBars(plan);
            const Announcements heard;
            const long count = plan.Count();
            const VARIANT task = ScreenReader::Part(Id(3, kStart));
            EXPECT_EQ(plan->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, task), S_OK);
            EXPECT_EQ(plan.Focus(), Id(3, kWholeRow));
            EXPECT_EQ(stage.Bench().View()->SelectedTask(), 2u);
            EXPECT_EQ(heard.Count(EVENT_OBJECT_FOCUS, Id(3, kWholeRow)), 1);
            EXPECT_EQ(plan->accDoDefaultAction(task), DISP_E_MEMBERNOTFOUND);
            EXPECT_EQ(plan->accDoDefaultAction(ScreenReader::Part(Id(1, kWholeRow))), S_OK);
            EXPECT_TRUE(plan.State(Id(1, kWholeRow)) & STATE_SYSTEM_COLLAPSED);
            EXPECT_LT(plan.Count(), count);
        });
        stage.Leave(user, false);
    });
}

}  // namespace
}  // namespace refhost::win32
