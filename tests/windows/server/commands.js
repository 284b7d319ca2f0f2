// Calls each command of the registered add-in, late bound, and prints how it ended.
var methods = ["LaunchEdit", "LaunchAssign", "LaunchShow", "LaunchSave", "LaunchLoad",
               "LaunchOptions", "LaunchStartSchedulon", "LaunchStopSchedulon"];
var addIn = new ActiveXObject("KestrelDll.clsKestrelDll");
for (var i = 0; i < methods.length; ++i) {
    var outcome = "quiet";
    try {
        addIn[methods[i]]();
    } catch (error) {
        outcome = error.description;
    }
    WScript.Echo(methods[i] + ": " + outcome);
}
