#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/model/modGlobals.h"
#include "store/GridRegister.h"
#include "ui/controls/Button.h"
#include "ui/controls/Form.h"
#include "ui/controls/Grid.h"
#include "ui/editor/FactorFiles.h"

namespace kestrel::ui {

/// The risk factor editor: the plan's register in one grid, a factor a row, and below the last
/// factor a blank row to enter a new one. The grid is the working copy; the plan changes on OK
/// only.
class frmEditRiskFactors : public Form {
 public:
    explicit frmEditRiskFactors(modGlobals& globals);

    /// Fills the grid from the plan's register; when that holds no factors, as the option
    /// "OptionSetting" says; after cmdLoadFile from the chosen file. False when the file was
    /// refused (the user has been told) or none was chosen in place of the grid's factors; the
    /// grid is then as it was.
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

    /// @name Filling
    ///@{
    std::optional<Factors> FactorsToStartWith();
    /// Whether new factors may take the place of a register that cannot be read.
    bool UserReplaces(const std::string& fault);
    std::optional<Factors> FactorsOfFile(const std::string& path);
    std::string DefaultFile();
    std::string ExistingFile(const std::string& path);
    std::string BrowseForFactors(const std::string& filter, const std::string& folder);
    std::string SamplesFolder();
    std::string PlanFolder();
    bool FactorsAreAssigned();
    void Fill(const Factors& factors);
    ///@}

    /// @name Rows and cells
    ///@{
    void AddBlankRow(bool moveTo, bool force);
    void CompleteEntryRow();
    /// False when the row's correlation was refused: told, and its cell is current.
    bool NormaliseRow();
    bool CheckCorrelationCell();
    bool RefuseCorrelation(const char* message);
    /// @name Checks ahead of storing; true when a cell is refused: told, and it is current
    ///@{
    bool CheckDescriptions();
    bool CheckNumbers();
    void Refuse(const RefusedCell& cell);
    ///@}
    bool InUnnamedEntryRow() const;
    /// What leaving a cell by other means than the keys of Tabulon1_KeyDown does; false: stays.
    bool LeaveCell();
    ///@}

    /// @name Keys
    ///@{
    /// Makes the cell current and selects its row or, with `extend`, the rows up to it.
    void GoTo(int row, int column, bool extend = false);
    void GoDown();
    void GoUp();
    /// Shift and an arrow: one row up (-1) or down.
    void ExtendRows(int step);
    void CopyRows();
    void EnterPressed(bool shift);
    void TabPressed(bool shift);
    void StartEditing();
    void EscapePressed();
    ///@}

    /// @name Deletion
    ///@{
    bool DeleteSelectedRows();
    void DeleteRow(int row);
    ///@}

    modGlobals& globals_;
    std::optional<std::string> chosenFile_;     ///< of cmdLoadFile
    std::vector<std::int32_t> deletedNumbers_;  ///< each as it was when its row was removed
    bool registerChanged_ = false;
    std::uint16_t userLanguage_ = 0;
};

}  // namespace kestrel::ui
