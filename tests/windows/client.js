// A script that drives the control by name. The host shows no errors: the last line says that it was reached.
var control = new ActiveXObject("Norvel_Ovaline.Norvel_OvalineCtrl.1");
function say(what, value) { WScript.Echo(what + ": " + value); }
function refused(what, action) {
    var failed = false;
    try { action(); } catch (error) { failed = true; }
    say(what, failed);
}
control.Width = 30.5;
control.Height = 20;
say("width", control.Width);
say("there is text to mark", control.GetVectorDataSize() > 20);
control.TextData = "";
say("nothing to mark", control.GetVectorDataSize());
control.MirrorHorizontal = true;
control.FlipH();
say("mirror", control.MirrorHorizontal);
control.SetMeasurement(1);
control.Width = 1;
control.SetMeasurement(0);
say("an inch", Math.round(control.Width * 1000));
control.OutlineType = 77;
say("an enumeration's value is not checked", control.OutlineType);
refused("an object for a number", function () { control.Width = control; });
refused("no such method", function () { control.Nonsense(); });
refused("a number of more than 32 bits", function () { control.SerNumIncrement = 1e10; });
say("width afterwards", Math.round(control.Width * 1000));
control = null;
CollectGarbage();
WScript.Echo("finished");
