"""What the tests of vintrel-host share: calling the program under wine, and running test functions side by side.

The command line of every test program: VINTREL_HOST VINTREL_DLL SAMPLES_FOLDER WORK_FOLDER [PART_OF_A_TEST_NAME]
"""
import concurrent.futures
import csv
import io
import os
import shutil
import socket
import subprocess
import sys
import time

HOST, SERVER, SAMPLES, FOLDER = (os.path.abspath(path) for path in sys.argv[1:5])
LIMIT = 60


def host(*words, given=None, **options):
    done = subprocess.run(["wine", HOST, *words], input=given, capture_output=True, timeout=LIMIT, **options)
    return done.returncode, done.stdout.decode(), done.stderr.decode()


def start(*words, output, **options):
    return subprocess.Popen(["wine", HOST, *words], stdout=open(output, "wb"), stderr=subprocess.STDOUT, **options)


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def sample(name):
    with open(os.path.join(SAMPLES, name), "rb") as file:
        return file.read()


def write(path, content):
    with open(path, "wb") as file:
        file.write(content if isinstance(content, bytes) else content.encode())
    return path


def expect(got, wanted, what=""):
    if got != wanted:
        raise AssertionError(f"{what}\n      got    {got!r}\n      wanted {wanted!r}")


def expect_in(part, text):
    if part not in text:
        raise AssertionError(f"{part!r} is not in\n{text}")


def rows(text):
    return list(csv.DictReader(io.StringIO(text)))


def folder(name):
    path = os.path.join(FOLDER, name)
    shutil.rmtree(path, ignore_errors=True)
    os.makedirs(path)
    return path


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return str(probe.getsockname()[1])


def registered(command):
    expect(subprocess.run(["wine", "regsvr32", "/s", *command, SERVER], timeout=LIMIT).returncode, 0, "regsvr32")


def run(test):
    begin = time.time()
    try:
        test()
        print(f"ok      {test.__name__} ({time.time() - begin:.1f} s)", flush=True)
        return True
    except Exception as error:  # whatever it is, the other tests go on
        print(f"FAILED  {test.__name__}: {type(error).__name__}: {error}", flush=True)
        return False


def run_all(tests, unregistered=None, alone=()):
    """unregistered: a test that needs a prefix without the server; alone: tests that disturb all others."""
    os.makedirs(FOLDER, exist_ok=True)
    part = sys.argv[5] if len(sys.argv) > 5 else ""
    good = part != "" or unregistered is None or run(unregistered)
    registered([])
    try:
        wanted = [test for test in tests if part in test.__name__]
        with concurrent.futures.ThreadPoolExecutor(max_workers=3) as pool:
            results = list(pool.map(run, wanted))
        results += [run(test) for test in alone if part in test.__name__]
    finally:
        registered(["/u"])
    sys.exit(0 if good and results and all(results) else 1)
