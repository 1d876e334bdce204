' A script that drives the control by name. The host shows no errors: the last line says that it was reached.
Option Explicit
Dim control
Set control = CreateObject("Norvel_Ovaline.Norvel_OvalineCtrl")
Say "letters of the prefix", Len(control.SerialNumPrefix)
control.SetUpdateFlag 0
control.Width = 30.5
Say "width", control.Width
control.WIDTH = "12.25"
Say "width of a text", control.width
control.FontHeight = 0.05
Say "micrometres of a font height below its range", Round(control.FontHeight * 1000)
control.ArrayXDimension = 256
Say "array out of its range", control.ArrayXDimension
control.ArrayXDimension = 255
Say "array", control.ArrayXDimension
control.FillStyle = 3
Say "fill", control.FillStyle
control.Invert = True
Say "invert", control.Invert
control.TextData = "A" & vbTab & "B"
Say "text", control.TextData = "A" & vbTab & "B"
control.Angle = 300
control.RotateByQuadrant
Say "turned", control.Angle
control.SetDefaultSize 0
Say "default size", control.Width
Say "array type", control.GetArrayType
control.SerialNumEnable = True
Say "array type of serial numbers", control.GetArrayType

On Error Resume Next
control.Width = "wide"
Report "a text for a number"
control.Width = control
Report "an object for a number"
control.Nonsense = 1
Report "no such property"
control.ArrayXDimension = 1E10
Report "a number of more than 32 bits"
control.SetUpdateFlag
Report "an argument left out"
control.SetUpdateFlag 1, 2
Report "an argument too many"
On Error GoTo 0
Say "width afterwards", control.Width
Set control = Nothing
WScript.Echo "finished"

Sub Say(what, value)
    WScript.Echo what & ": " & value
End Sub

Sub Report(what)
    WScript.Echo what & ": " & (Err.Number <> 0)
    Err.Clear
End Sub
