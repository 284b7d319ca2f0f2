#include "ui/driving_risks/frmTornado.h"

#include <tuple>
#include <utility>
#include <vector>

#include "support/AddInTest.h"

namespace kestrel::test {
namespace {

using ui::frmTornado;

/// The window, opened through the "show" command on a plan in memory.
class DrivingRisksTest : public AddInTest {
 protected:
    using Sensitivities = std::vector<std::pair<double, double>>;  // duration and cost

    void StoreSensitivities(const Sensitivities& factors) {
        StoreFactors(static_cast<int>(factors.size()), [&](int i, clsRiskFactor& factor) {
            std::tie(factor.dblDurSens, factor.m_dCostSens) =
                factors[static_cast<std::size_t>(i - 1)];
        });
    }
    void StoreTopRisks(const std::string& value) {
        host.application->settings[{"RiskFactors", "Options", "ShowTopRisks"}] = value;
    }
    void Show(const std::function<void(User&, frmTornado&)>& script) {
        runner.script = [&](User& user) {
            script(user, dynamic_cast<frmTornado&>(user.TheForm()));
        };
        addin.LaunchShow();
    }
    /// Names of the bars from the top, with their values.
    static std::string Bars(const frmTornado& form) {
        const auto& points = form.plotDur.Channel(0).points;
        const auto& ticks = form.plotDur.XAxis(0).customTicks;
        if (points.size() != ticks.size()) return "a bar without a name";
        std::string bars;
        for (std::size_t i = 0; i < points.size(); ++i) {
            if (points[i].x != static_cast<double>(i + 1) || ticks[i].position != points[i].x)
                return "a bar out of place";
            bars += ticks[i].label + "=" + std::to_string(points[i].y).substr(0, 5) + "; ";
        }
        return bars;
    }
    static double AxisNumber(const ui::ChartAxis& axis, const char* name) {
        return axis.attributes.Number(name);
    }
};

TEST_F(DrivingRisksTest, TheNumberShownStaysWithinTheRegister) {
    const struct {
        const char* name;
        int factors;
        const char* stored;  // nullptr: the default
        const char* spins;   // U up, D down
        const char* shown;
    } rows[] = {
        {"opens with the stored number", 3, "2", "", "2"},
        {"up to the number of factors", 3, "2", "UU", "3"},
        {"the default is lowered to the factors", 3, nullptr, "", "3"},
        {"the default of ten", 12, nullptr, "", "10"},
        {"down to one", 3, "2", "DDD", "1"},
        {"an empty register", 0, nullptr, "UD", "0"},
        {"a stored number below one shows none", 3, "-4", "D", "0"},
        {"from none up", 3, "0", "UU", "2"},
        {"a text that is no number", 3, "many", "", "3"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        StoreSensitivities(Sensitivities(static_cast<std::size_t>(row.factors), {0.5, 0.5}));
        host.application->settings.clear();
        if (row.stored) StoreTopRisks(row.stored);
        bool opened = false;
        Show([&](User& user, frmTornado& form) {
            opened = true;
            form.SetFocus(form.SpinButton1);
            for (const char* spin = row.spins; *spin; ++spin)
                user.Press(*spin == 'U' ? Key::Up : Key::Down);
            EXPECT_EQ(form.txtTopRisks.Text(), row.shown);
            const int shown = std::stoi(row.shown);
            EXPECT_EQ(form.plotDur.Channel(0).points.size(), static_cast<std::size_t>(shown));
            EXPECT_EQ(form.plotDur.XAxis(0).customTicks.size(), static_cast<std::size_t>(shown));
            EXPECT_EQ(AxisNumber(form.plotDur.XAxis(0), "Span"), shown + 1);
        });
        EXPECT_TRUE(opened);
        EXPECT_EQ(host.application->settings.size(), row.stored ? 1u : 0u);
    }
}

TEST_F(DrivingRisksTest, EachMeasureRanksByItsOwnSquare) {
    StoreSensitivities({{0.5, -0.25}, {-0.8, 0.125}, {100, 100}, {0.5, 1}});
    Show([&](User& user, frmTornado& form) {
        const ui::Chart& chart = form.plotDur;
        EXPECT_TRUE(form.OptionDuration.Selected());
        EXPECT_EQ(chart.Attributes().Text("TitleText"), "Risk Factors Driving Project Schedule");
        EXPECT_EQ(Bars(form), "2 - F2=-0.80; 1 - F1=0.500; 4 - F4=0.500; 3 - F3=0.000; ");
        EXPECT_EQ(AxisNumber(chart.YAxis(0), "Min"), -0.8);
        EXPECT_EQ(AxisNumber(chart.YAxis(0), "Span"), 1.3);
        EXPECT_TRUE(form.gridDur.Visible());
        EXPECT_FALSE(form.gridCost.Visible());

        user.Click("OptionCost");
        EXPECT_EQ(chart.Attributes().Text("TitleText"), "Risk Factors Driving Project Cost");
        EXPECT_EQ(Bars(form), "4 - F4=1.000; 1 - F1=-0.25; 2 - F2=0.125; 3 - F3=0.000; ");
        EXPECT_EQ(AxisNumber(chart.YAxis(0), "Min"), -0.25);
        EXPECT_TRUE(form.gridCost.Visible());
        EXPECT_FALSE(form.gridDur.Visible());

        user.Click("OptionDuration");
        EXPECT_EQ(chart.Channel(0).points.size(), 4u) << "none is left of an earlier drawing";
    });
    modGlobals globals(desktop);
    LoadRegisterFromPlan(globals, *host.plan);
    EXPECT_EQ(globals.RiskFactors.at(2)->dblDurSens, 100) << "showing changes nothing";
}

TEST_F(DrivingRisksTest, TheClipboardGetsTheVisibleColumnsOfTheChosenMeasure) {
    StoreSensitivities({{0.5, 0.99344}, {-0.8, 0}});
    StoreTopRisks("1");
    Show([&](User& user, frmTornado&) {
        user.Click("cmdCopyToClip");
        EXPECT_EQ(desktop.ClipboardText(),
                  "ID\tDescription\tImportance\t\r\n"
                  "2\tF2\t-80.00%\t\r\n1\tF1\t50.00%\t\r\n");
        user.PressLetter('O', false, true);
        user.PressLetter('C', false, true);
        EXPECT_EQ(desktop.ClipboardText(),
                  "ID\tDescription\tImportance\t\r\n"
                  "1\tF1\t99.34%\t\r\n2\tF2\t0.00%\t\r\n");
    });
}

}  // namespace
}  // namespace kestrel::test
