"""scripts.py MODULE EMULATOR...: registers the module with the system's own tool, drives the control from both script
languages of the system, and removes the registration."""
import pathlib
import subprocess
import sys

HERE = pathlib.Path(__file__).parent
ID = "{6F0E2C44-9B7D-4E53-A164-3C58D2907E11}"
PAGES = ["{6F0E2C45-9B7D-4E53-A164-3C58D2907E11}", "{6F0E2C46-9B7D-4E53-A164-3C58D2907E11}"]
LIBRARY = "{6F0E2C40-9B7D-4E53-A164-3C58D2907E11}"
APPLICATION = "{6F0E2C43-9B7D-4E53-A164-3C58D2907E11}"
PROG_ID = "Norvel_Ovaline.Norvel_OvalineCtrl"

VISUAL_BASIC = """letters of the prefix: 7
width: 30.5
width of a text: 12.25
micrometres of a font height below its range: 100
array out of its range: 1
array: 255
fill: 3
invert: True
text: True
turned: 30
default size: 20
array type: 1
array type of serial numbers: 0
a text for a number: True
an object for a number: True
no such property: True
a number of more than 32 bits: True
an argument left out: True
an argument too many: True
width afterwards: 20
finished"""

JAVA_SCRIPT = """width: 30.5
there is text to mark: true
nothing to mark: 20
mirror: false
an inch: 25400
an enumeration's value is not checked: 77
an object for a number: true
no such method: true
a number of more than 32 bits: true
width afterwards: 25400
finished"""


def windows_path(path):
    return "Z:" + str(pathlib.Path(path).resolve()).replace("/", "\\")


class Client:
    def __init__(self, emulator):
        self.emulator = emulator
        self.wrong = []

    def run(self, *command):
        done = subprocess.run([*self.emulator, *command], capture_output=True, timeout=120, check=False)
        return done.returncode, done.stdout.decode("utf-8", "replace").replace("\r\n", "\n").strip()

    def expect(self, what, got, wanted):
        if got != wanted:
            self.wrong.append(f"{what}:\n{got}\nand not\n{wanted}")

    def value(self, key, name=None):
        """The value of a key under HKEY_CLASSES_ROOT, or None."""
        status, text = self.run("reg", "query", "HKCR\\" + key, *(["/v", name] if name else ["/ve"]))
        return text.splitlines()[-1].split("    ")[-1] if status == 0 else None


def main(module, *emulator):
    client = Client(emulator)
    path = windows_path(module)
    klass = f"CLSID\\{ID}"
    registered = {
        (f"{PROG_ID}\\CLSID", None): ID,
        (f"{PROG_ID}\\CurVer", None): f"{PROG_ID}.1",
        (f"{PROG_ID}.1\\CLSID", None): ID,
        (klass, None): "Norvel_OvalineCtrl Class",
        (klass, "AppID"): APPLICATION,
        (f"{klass}\\InprocServer32", None): path,
        (f"{klass}\\MiscStatus\\1", None): "131473",
        (f"{klass}\\ToolboxBitmap32", None): f"{path}, 103",
        (f"{klass}\\TypeLib", None): LIBRARY,
        (f"CLSID\\{PAGES[0]}\\InprocServer32", None): path,
        (f"CLSID\\{PAGES[1]}\\InprocServer32", None): path,
        (f"TypeLib\\{LIBRARY}\\1.0", None): "Norvel_OvalineLib",
        ("AppID\\Norvel_Ovaline.DLL", "AppID"): APPLICATION,
    }
    client.expect("regsvr32", client.run("regsvr32", "/s", path)[0], 0)
    for (key, name), wanted in registered.items():
        client.expect(key, client.value(key, name), wanted)
    client.expect("ThreadingModel", client.value(f"{klass}\\InprocServer32", "ThreadingModel"), None)
    for script, wanted in ("client.vbs", VISUAL_BASIC), ("client.js", JAVA_SCRIPT):
        client.expect(script, client.run("cscript", "//nologo", windows_path(HERE / script))[1], wanted)
    client.expect("regsvr32 /u", client.run("regsvr32", "/u", "/s", path)[0], 0)
    for key, name in registered:
        client.expect(f"{key} afterwards", client.value(key, name), None)
    client.expect("the shared key", client.run("reg", "query", "HKCR\\AppID")[0], 0)
    print("\n".join(client.wrong) or f"{len(registered)} values and two scripts as they should be")
    return 1 if client.wrong else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
