#include "store/GridRegister.h"

#include <algorithm>
#include <string>

#include "base/NumberText.h"
#include "store/OpenPlan.h"
#include "store/RegisterDocument.h"

namespace kestrel {
namespace {

std::string CellName(int row, int column) {
    return "row " + std::to_string(row) + ", column " + std::to_string(column);
}

double Percentage(const ui::GridTable& grid, int row, int column) {
    std::string text = grid.Text(row, column);
    std::erase(text, '%');
    return ParseNumber(text);
}

std::int32_t FactorNumber(const ui::GridTable& grid, int row) {
    const auto number = ToInt32(ParseNumber(grid.Text(row, kCorrelatedToColumn)));
    if (!number)
        throw DataError("The number in " + CellName(row, kCorrelatedToColumn) +
                        " is out of range; enter the number of a risk factor.");
    return *number;
}

clsRiskFactor ReadRow(const ui::GridTable& grid, int row) {
    clsRiskFactor factor;
    factor.strDescription = grid.Text(row, kDescriptionColumn);
    factor.dblMin = Percentage(grid, row, kDurMinColumn);
    factor.dblML = Percentage(grid, row, kDurLikelyColumn);
    factor.dblMax = Percentage(grid, row, kDurMaxColumn);
    factor.dblCostMin = Percentage(grid, row, kCostMinColumn);
    factor.dblCostML = Percentage(grid, row, kCostLikelyColumn);
    factor.dblCostMax = Percentage(grid, row, kCostMaxColumn);
    factor.dblProb = Percentage(grid, row, kLikelihoodColumn);
    factor.CorrelatedTo = FactorNumber(grid, row);
    return factor;
}

/// What is wrong with a row's figures; empty when nothing is.
std::string Fault(const ui::GridTable& grid, int row, const clsRiskFactor& factor) {
    if (factor.dblProb < 0 || factor.dblProb > 100)
        return "The Risk Probability must be between 0-100";
    const struct {
        double before, value;
        int column;
    } steps[] = {{factor.dblMin, factor.dblML, kDurLikelyColumn},
                 {factor.dblML, factor.dblMax, kDurMaxColumn},
                 {factor.dblCostMin, factor.dblCostML, kCostLikelyColumn},
                 {factor.dblCostML, factor.dblCostMax, kCostMaxColumn}};
    for (const auto& step : steps) {
        if (step.value >= step.before) continue;
        return "The " + grid.Text(0, step.column) + " Risk Percentage cannot be less than the " +
               grid.Text(0, step.column - 1) + " Risk Percentage in Row: " + std::to_string(row);
    }
    return {};
}

}  // namespace

bool StoreGridAsRegister(modGlobals& globals, const ui::GridTable& grid) {
    const host::PlanPtr plan = OpenPlan(globals);
    XmlDocument document = NewRegisterDocument();
    for (int row = 1; row <= LastRiskRow(grid); ++row) {
        const clsRiskFactor factor = ReadRow(grid, row);
        if (const std::string fault = Fault(grid, row, factor); !fault.empty()) {
            globals.desktop.ShowMessage(fault);
            return false;
        }
        XmlNode& element = document.root.Append(XmlNode::Element("RiskFactor"));
        element.SetAttribute("ID", std::to_string(row));
        factor.SaveRiskToXML(element);
    }
    plan->SetText(kRegisterText, SerialiseXml(document.root));
    globals.RiskFactors.clear();
    LoadRegisterFromPlan(globals, *plan);
    return true;
}

}  // namespace kestrel
