// The server from JScript, which passes every argument by value.
var failed = 0;

function check(what, actual, expected) {
    if (actual !== expected) {
        failed++;
        WScript.Echo(what + ": " + actual + " instead of " + expected);
    }
}

var names = ["ServerInfo", "SetServerOptions", "ComProgramSet", "ServiceEnabled", "ComEventsTX", "ComEventsRX",
             "ComGdvFilter", "PMSEvents"];
var objects = {};
for (var i = 0; i < names.length; i++) objects[names[i]] = new ActiveXObject("Vintrel." + names[i]);

var code = "type10017";
check("name", objects.ServerInfo.GetPabxTypeName(code), "Avaya - IP Office");
check("undefined", objects.ServerInfo.GetPabxTypeName(undefined), "type not found");
check("layout", objects.ComGdvFilter.GetGdvRealStringLen(), 87);

function failureOf(call) {
    try {
        call();
    } catch (failure) {
        return failure.number & 0xFFFF;
    }
    return 0;
}
check("error number", failureOf(function () { objects.PMSEvents.GetPMS_ColumnData("GI|RN12", "|RN"); }), 5);
check("null is refused", failureOf(function () { objects.ServerInfo.GetPabxTypeName(null); }) !== 0, true);

if (failed === 0) WScript.Echo("END");
