// Asks the server for the text that sets a wake-up call, and shows it with the control characters named.
// Run it with the 32-bit script host: %windir%\SysWOW64\cscript.exe //nologo wake_up.js
var transmit = new ActiveXObject("Vintrel.ComEventsTX");
var capabilities = new ActiveXObject("Vintrel.ServiceEnabled");

function shown(text) {
    var names = { 2: "<STX>", 3: "<ETX>", 9: "<TAB>", 13: "<CR>" };
    var result = "";
    for (var i = 0; i < text.length; i++) result += names[text.charCodeAt(i)] || text.charAt(i);
    return result;
}

var types = ["TYPE10001", "TYPE10008", "TYPE10009", "TYPE12000"];
for (var i = 0; i < types.length; i++) {
    if (capabilities.GetClockEnabled(types[i]) !== 1) {
        WScript.Echo(types[i] + " takes no wake-up calls");
        continue;
    }
    // Room 204, 07:30, no date, a single call, English.
    WScript.Echo(types[i] + " " + shown(transmit.ComEventClockTX(types[i], 204, "0730", "----", 0, 2)));
}
