#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/model/modGlobals.h"
#include "ui/controls/Button.h"
#include "ui/controls/Form.h"
#include "ui/controls/Grid.h"
#include "ui/editor/EditorKeys.h"
#include "ui/editor/EditorRows.h"
#include "ui/editor/FactorFiles.h"

namespace kestrel::ui {

/// The risk factor editor: the plan's register in one grid, a factor a row, and below the last
/// factor a blank row to enter a new one. The grid is the working copy; the plan changes on OK
/// only.
class frmEditRiskFactors : public Form {
 public:
    explicit frmEditRiskFactors(modGlobals& globals);

    /// Fills the grid from the plan's register; when that holds no factors, as the option
    /// "OptionSetting" says. False when that was refused (the user has been told); the grid is
    /// then as it was.
    bool LoadData();

    /// Loads the default factors and stores them in the plan, without showing the form.
    bool StoreDefaultFactors();

    /// Whether OK stored the grid in the plan.
    bool RegisterChanged() const { return registerChanged_; }
    /// The user's language when the form was loaded.
    std::uint16_t UserLanguage() const { return userLanguage_; }

    Grid Tabulon1{"Tabulon1"};
    Button cmdDeleteRisk{"cmdDeleteRisk", "&Delete Risk"};
    Button cmdLoadFile{"cmdLoadFile", "&Load From File"};
    Button cmdSave{"cmdSave", "&Save To File"};
    Button cmdHelp{"cmdHelp", "&Help"};
    Button cmdCancelRisk{"cmdCancelRisk", "Cancel"};
    Button cmdOKRisk{"cmdOKRisk", "&OK"};

    void cmdDeleteRisk_Click();
    void cmdLoadFile_Click();
    void cmdSave_Click();
    void cmdHelp_Click();
    void cmdCancelRisk_Click();
    void cmdOKRisk_Click();
    bool Tabulon1_KeyDown(const KeyEvent& event);
    bool Tabulon1_KeyPress(char32_t code);
    bool Tabulon1_Paste(const std::string& text);

 protected:
    void Form_Load() override;

 private:
    void PlaceControls();
    void ConnectHandlers();
    /// False when there are none to show.
    bool Show(const std::optional<RiskRegister>& factors);
    bool FactorsAreAssigned();
    /// False when a cell keeps the rows from being stored: told.
    bool RowsAreComplete();

    modGlobals& globals_;
    FactorFiles files_;
    EditorRows rows_;
    EditorKeys keys_;
    bool registerChanged_ = false;
    std::uint16_t userLanguage_ = 0;
};

}  // namespace kestrel::ui
