// A script in a process of its own works the registered host in another one and the add-in in
// its own: analyse.js PLAN SAVED
function step(name, action) {
    try {
        return action();
    } catch (error) {
        WScript.Echo(name + ": " + error.message);
        if (app) app.Quit();
        WScript.Quit(1);
    }
}
var app, plan, addIn;
step("create the host", function () { app = WScript.CreateObject("Schedulon.Application"); });
step("open", function () { plan = app.Open(WScript.Arguments.Item(0)); });
step("create the add-in", function () {
    addIn = WScript.CreateObject("KestrelDll.clsKestrelDll");
});
step("start", function () { addIn.LaunchStartSchedulon(); });
step("analyse", function () { plan.RiskAnalysis.Run(2, 7); });
step("stop", function () { addIn.LaunchStopSchedulon(); });
step("save", function () {
    if (plan.Saved) throw new Error("an analysed plan counts as saved");
    plan.Save(WScript.Arguments.Item(1));
    if (!plan.Saved) throw new Error("a saved plan counts as changed");
});
WScript.Echo(plan.Name + ": " + plan.Tasks.Count + " tasks");
