#!/usr/bin/env python3
"""Starts the program in each of its modes, in bundles with and without what it reads there:
start_up.py EXECUTABLE"""
import os
import shutil
import subprocess
import sys
import tempfile

executable = sys.argv[1]
FATAL = "Vanoka/main:25: Fatal error: Could not start the Vanoka input method server\n"
GOOD = {"InputMethodConnectionName": "example.inputmethod.Vanoka_Connection",
        "CFBundleIdentifier": "example.inputmethod.Vanoka"}


def start(arguments, information=GOOD, timeout=30, **environment):
    """Status, standard output and standard error; a status of None: it was still running."""
    with tempfile.TemporaryDirectory() as folder:
        bundle = os.path.join(folder, "Vanoka.app")
        os.makedirs(os.path.join(bundle, "Resources"))
        shutil.copy(executable, os.path.join(bundle, "Vanoka"))
        if information is not None:
            rows = "".join(f"{key} = {value};\n" for key, value in
                           ((key, value if value.startswith("(") else f'"{value}"')
                            for key, value in information.items()))
            with open(os.path.join(bundle, "Resources", "Info-gnustep.plist"), "w") as file:
                file.write("{\n" + rows + "}\n")
        # Stopping the process on purpose leaves no core file behind.
        process = subprocess.Popen(["sh", "-c", 'ulimit -c 0; exec "$0" "$@"', os.path.join(bundle, "Vanoka"),
                                    *arguments], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, text=True, env={**os.environ, **environment})
        try:
            output, error = process.communicate(timeout=timeout)
            return process.returncode, output, error
        except subprocess.TimeoutExpired:
            process.kill()
            output, error = process.communicate()
            return None, output, error


def expect(name, condition, result):
    print(("ok      " if condition else "FAILED  ") + name)
    if not condition:
        print(result)
        expect.failed = True


expect.failed = False

result = start(["--register"])
expect("registers and says so", result == (0, "Registered Vanoka input source\n", ""), result)
result = start(["--register"], VANOKA_TEST_REGISTRATION_STATUS="-50")
expect("says why it could not", result == (1, "TISRegisterInputSource failed: -50\n", ""), result)
result = start(["--settings", "--register"])
expect("only registers with both switches", result == (0, "Registered Vanoka input source\n", ""), result)
result = start(["--settings"], VANOKA_TEST_CLOSE="1")
expect("closing the settings window ends the process with 0, and it was a regular application",
       result[:2] == (0, "closing Vanoka Settings, policy 0\n"), result)

for name, information in {"nothing": None, "no connection name": {"CFBundleIdentifier": "x"},
                          "a name that is no text": {**GOOD, "InputMethodConnectionName": "(a)"}}.items():
    result = start([], information)
    expect("does not serve with " + name,
           result[0] not in (0, None) and FATAL in result[2] and "serving" not in result[1], result)
result = start([], VANOKA_TEST_NO_SERVER="1")
expect("stops when the server cannot be made", result[0] not in (0, None) and FATAL in result[2], result)
result = start([], timeout=3)
expect("serves under its connection name until it is ended",
       result[:2] == (None, "serving example.inputmethod.Vanoka_Connection for example.inputmethod.Vanoka\n"),
       result)
sys.exit(expect.failed)
