#include "store/RegisterDocument.h"

#include <gtest/gtest.h>

#include <limits>

#include "store/TaskField.h"
#include "support/FakeDesktop.h"
#include "support/FakeHost.h"
#include "util/modXmlToolbox.h"

namespace kestrel {
namespace {

class RegisterDocument : public testing::Test {
 protected:
    void Load(const std::string& text) {
        host_.plan->texts["RiskFactors"] = text;
        LoadRegisterFromPlan(globals_, *host_.plan);
    }

    test::FakeHost host_;
    test::FakeDesktop desktop_;
    modGlobals globals_{desktop_};
};

std::string Factor(const std::string& name, const std::string& probability) {
    return "<RiskFactor ID='9'>\n<Probability>" + probability + "</Probability><Name>" + name +
           "</Name><Minimum>90%</Minimum><MostLikely> 100 </MostLikely><Maximum>120.5</Maximum>"
           "</RiskFactor>";
}

TEST_F(RegisterDocument, IsWrittenElementByElement) {
    SaveRegisterToPlan(globals_.RiskFactors, *host_.plan);
    EXPECT_EQ(host_.plan->texts["RiskFactors"], "<RiskFactors Version=\"RiskFactors1.00\"/>");

    auto factor = std::make_shared<clsRiskFactor>();
    factor->strID = "7";
    factor->strDescription = "Steel & iron";
    factor->dblMin = 90;
    factor->dblML = 100.5;
    factor->dblMax = 120;
    factor->dblCostMin = 80;
    factor->dblCostML = 101;
    factor->dblCostMax = 130;
    factor->dblProb = 1.0 / 3;
    factor->dblDurSens = -0.25;
    factor->m_dCostSens = 1e-7;
    factor->CorrelatedTo = 2;
    globals_.RiskFactors = {factor, std::make_shared<clsRiskFactor>()};
    globals_.RiskFactors[1]->strDescription = "";
    SaveRegisterToPlan(globals_.RiskFactors, *host_.plan);
    EXPECT_EQ(host_.plan->texts["RiskFactors"],
              "<RiskFactors Version=\"RiskFactors1.00\"><RiskFactor ID=\"1\">"
              "<Name>Steel &amp; iron</Name><Minimum>90</Minimum><MostLikely>100.5</MostLikely>"
              "<Maximum>120</Maximum><CostMinimum>80</CostMinimum>"
              "<CostMostLikely>101</CostMostLikely><CostMaximum>130</CostMaximum>"
              "<Probability>0.333333333333333</Probability><DurSens>-0.25</DurSens>"
              "<CostSens>1E-07</CostSens><CorrelatedTo>2</CorrelatedTo></RiskFactor>"
              "<RiskFactor ID=\"2\"><Name/><Minimum>100</Minimum><MostLikely>100</MostLikely>"
              "<Maximum>100</Maximum><CostMinimum>100</CostMinimum>"
              "<CostMostLikely>100</CostMostLikely><CostMaximum>100</CostMaximum>"
              "<Probability>100</Probability><DurSens>100</DurSens><CostSens>100</CostSens>"
              "<CorrelatedTo>0</CorrelatedTo></RiskFactor></RiskFactors>");

    const std::string written = host_.plan->texts["RiskFactors"];
    globals_.RiskFactors.clear();
    Load(written);
    SaveRegisterToPlan(globals_.RiskFactors, *host_.plan);
    EXPECT_EQ(host_.plan->texts["RiskFactors"], written);
}

TEST_F(RegisterDocument, FactorsAreNumberedByPositionAndAppended) {
    globals_.RiskFactors = {std::make_shared<clsRiskFactor>()};
    Load("<any><RiskFactor xmlns='urn:x'/>" + Factor("A", "10") + "<deeper>" + Factor("", "20") +
         "</deeper></any>");
    ASSERT_EQ(globals_.RiskFactors.size(), 3u);
    const clsRiskFactor& first = *globals_.RiskFactors[1];
    EXPECT_EQ(first.strID, "2");
    EXPECT_EQ(first.strDescription, "A");
    EXPECT_EQ(first.dblMin, 90);
    EXPECT_EQ(first.dblMax, 120.5);
    EXPECT_EQ(first.dblProb, 10);
    EXPECT_EQ(first.dblCostMin, 100);  // documents from before cost impacts leave costs alone
    EXPECT_EQ(globals_.RiskFactors[2]->strID, "3");
    EXPECT_EQ(globals_.RiskFactors[2]->strDescription, "");
    EXPECT_EQ(host_.plan->userFields.size(), 2u);
}

TEST_F(RegisterDocument, WhatIsNotADocumentAddsNothingAndSaysNothing) {
    for (const char* text : {"", "<RiskFactors>", "text", "<!DOCTYPE a><a/>", "<RiskFactors/>"}) {
        Load(text);
        EXPECT_TRUE(globals_.RiskFactors.empty()) << text;
    }
    EXPECT_TRUE(desktop_.messages.empty());
}

TEST_F(RegisterDocument, AStringIsDecodedWhateverItDeclares) {
    for (const char* declared : {"encoding=\"utf-16\"", "encoding='iso-8859-1'", ""}) {
        globals_.RiskFactors.clear();
        Load(std::string("<?xml version='1.0' ") + declared + "?>\n<r>" + Factor("Größe", "1") +
             "</r>");
        ASSERT_EQ(globals_.RiskFactors.size(), 1u) << declared;
        EXPECT_EQ(globals_.RiskFactors[0]->strDescription, "Größe");
    }
}

TEST_F(RegisterDocument, AFactorThatCannotBeReadIsNamedAndNothingIsAdded) {
    const struct {
        std::string factor;
        const char* message;
    } rows[] = {
        {"<RiskFactor/>", "Risk factor 2: Name is missing."},
        {"<RiskFactor><Name/></RiskFactor>",
         "Risk factor 2: Minimum is missing or not a number (line 3)."},
        {Factor("B", ""), "Risk factor 2: Probability is missing or not a number (line 4)."},
        {Factor("B", "12,5"), "Risk factor 2: Probability is missing or not a number (line 4)."},
    };
    for (const auto& row : rows) {
        try {
            Load("<r>" + Factor("A", "1") + "\n" + row.factor + "</r>");
            ADD_FAILURE() << row.message;
        } catch (const DataError& error) {
            EXPECT_STREQ(error.what(), row.message);
        }
        EXPECT_TRUE(globals_.RiskFactors.empty());
    }
}

TEST_F(RegisterDocument, NumbersThatMayBeMissingFallBackOneByOne) {
    clsRiskFactor factor;
    factor.dblCostMin = 1;
    factor.CorrelatedTo = 5;
    factor.strID = "5";
    XmlNode element = desktop_.ParseXml(Factor("A", "50%")).root;
    element.Append(CreateXmlElement("CostMinimum", "none"));
    element.Append(CreateXmlElement("CostMaximum", "150%"));
    element.Append(CreateXmlElement("CorrelatedTo", "3000000000"));
    factor.LoadRiskFromXML(element);
    EXPECT_EQ(factor.dblCostMin, 100);
    EXPECT_EQ(factor.dblCostMax, 150);
    EXPECT_EQ(factor.CorrelatedTo, 0);
    EXPECT_EQ(factor.strID, "");
}

TEST_F(RegisterDocument, AFigureThatIsNotFiniteIsNeverStored) {
    globals_.RiskFactors = {std::make_shared<clsRiskFactor>()};
    globals_.RiskFactors[0]->dblDurSens = std::numeric_limits<double>::infinity();
    EXPECT_THROW(SaveRegisterToPlan(globals_.RiskFactors, *host_.plan), ArithmeticError);
    EXPECT_FALSE(host_.plan->texts.contains("RiskFactors"));
}

TEST_F(RegisterDocument, ChildrenAreFoundByExactNameFirstOneFirst) {
    const XmlNode element =
        desktop_.ParseXml("<r>\n<b><a>deep</a></b><a>1<i>2</i></a><a>3</a><n>12.5%</n></r>").root;
    EXPECT_EQ(GetChildText("a", element), "12");
    EXPECT_EQ(GetChildText("A", element), "");
    EXPECT_EQ(GetChildNumber("n", element), 12.5);
}

TEST_F(RegisterDocument, AFailedLoadLeavesAnEmptyDocument) {
    XmlDocument document = NewRegisterDocument();
    EXPECT_FALSE(LoadXmlFromString(desktop_, document, "<a>"));
    EXPECT_TRUE(document.IsEmpty());
    document = NewRegisterDocument();
    EXPECT_FALSE(LoadXmlFromFile(desktop_, document, "/absent/file.xml"));
    EXPECT_TRUE(document.IsEmpty());
    EXPECT_TRUE(LoadXmlFromString(desktop_, document, "<a>\n <b/>\n</a>"));
    EXPECT_EQ(document.root.children.size(), 1u);
}

}  // namespace
}  // namespace kestrel
