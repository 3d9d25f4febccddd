"""The commands of vintrel-host: what they write, how they fail, and links between a simulated exchange and a host.

usage: test_host.py VINTREL_HOST VINTREL_DLL SAMPLES_FOLDER WORK_FOLDER [PART_OF_A_TEST_NAME]
Needs wine in the path and its prefix in WINEPREFIX.
"""
import concurrent.futures
import csv
import glob
import io
import json
import os
import pty
import select
import shutil
import signal
import socket
import subprocess
import sys
import time
import tty

HOST, SERVER, SAMPLES, FOLDER = (os.path.abspath(path) for path in sys.argv[1:5])
ALL_MODELS = [f"TYPE{number}" for number in range(10001, 10021)] + ["TYPE12000"]
LIMIT = 60


def host(*words, given=None, **options):
    done = subprocess.run(["wine", HOST, *words], input=given, capture_output=True, timeout=LIMIT, **options)
    return done.returncode, done.stdout.decode(), done.stderr.decode()


def start(*words, output):
    return subprocess.Popen(["wine", HOST, *words], stdout=open(output, "wb"), stderr=subprocess.STDOUT)


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


# --- Single commands ---------------------------------------------------------------------------------------------------

def says_that_the_server_is_not_registered():
    subprocess.run(["wine", "regsvr32", "/s", "/u", SERVER], timeout=LIMIT)  # by whoever ran before
    code, _, errors = host("models")
    expect(code, 3)
    expect_in("the server is not registered", errors)


def models_lists_the_catalogue_in_every_format():
    code, out, _ = host("models", "--format", "json")
    models = [json.loads(line) for line in out.splitlines()]
    expect((code, [model["code"] for model in models]), (0, ALL_MODELS))
    expect(models[-1]["model"], "FIAS - PMS")
    expect([row["Code"] for row in rows(host("models", "--format=csv")[1])], ALL_MODELS)
    expect_in("\nTYPE10017  Avaya - IP Office\n", host("models")[1])


def every_command_explains_itself():
    code, out, _ = host("--help")
    expect(code, 0)
    commands = [line.split()[0] for line in out.split("commands:\n")[1].split("\n\n")[0].splitlines()]
    for command in commands:
        code, out, _ = host(command, "--help")
        expect(code, 0, command)
        expect_in(f"usage: vintrel-host {command} ", out)


def wrong_command_lines_are_refused():
    capture = os.path.join(SAMPLES, "mitel_pc4.txt")
    for words, message in [
        (["converted"], 'no command "converted"'),
        (["convert", capture], "--model is missing"),
        (["convert", "--model", "TYPE10021", capture], 'no model "TYPE10021"'),
        (["convert", "--model", "TYPE10004"], "the capture"),
        (["convert", "--model", "TYPE10004", "--format", "xml", capture], "--format is"),
        (["listen", "--model", "TYPE10004"], "give one of"),
        (["listen", "--model", "TYPE10004", "--connect", "nowhere"], "HOST:PORT"),
        (["listen", "--model", "TYPE10004", "--listen", "65536"], "1 to 65535"),
        (["listen", "--model", "TYPE10004", "--serial", "COM1", "--line", "fast"], "BAUD,BITS"),
        (["simulate", "--model", "TYPE10004", "--print", "--fault", "fire"], "--fault is"),
    ]:
        code, _, errors = host(*words)
        expect(code, 2, words)
        expect_in(message, errors)
    code, _, errors = host("convert", "--model", "TYPE10004", "missing.txt")
    expect(code, 1)
    expect_in("missing.txt cannot be opened", errors)


def convert_cuts_the_same_calls_in_every_format():
    capture = os.path.join(SAMPLES, "mitel_pc4.txt")
    with open(capture, "rb") as file:
        lines = file.read().split(b"\r\n")[:-1]
    code, out, errors = host("convert", "--model", "type10004", "--format", "csv", capture)
    expect(code, 0)
    calls = rows(out)
    # The Mitel line carries number, room and line as they stand: cut them here once more.
    expect([(c["Number"], c["User"], c["Line"]) for c in calls],
           [tuple(line[a:a + n].decode().strip() for a, n in ((66, 16), (1, 5), (42, 5))) for line in lines])
    expect_in(f"{len(lines)} records: {len(lines)} calls", errors)
    piped = host("convert", "--model", "TYPE10004", "--format", "json", "-", given=b"\r\n".join(lines) + b"\r\n")[1]
    expect([list(json.loads(line).values()) for line in piped.splitlines()], [list(c.values()) for c in calls])
    table = host("convert", "--model", "TYPE10004", capture)[1].splitlines()
    expect(len(table), len(lines) + 2)
    start_of_number = table[0].index("Number")
    expect([line[start_of_number:start_of_number + 16].strip() for line in table[2:]], [c["Number"] for c in calls])


def convert_tells_calls_from_what_is_none():
    capture = (b"\2LS|DA240304|TI080000|\3y\2PS|RN102|PTT|MP12|DA240304|TI080215|P#1|DD0041448001122|DU95|\3"
               b"noise\2PS|half\2LR|RIPS|FLRN|\3\2RE|RN201|RS3|\3\2PS|RN1|DA|TI|DU100000|\3\2PS|RN9")
    code, out, errors = host("convert", "--model", "TYPE12000", "--format", "csv", "--verbose", "-", given=capture)
    expect(code, 1)
    expect([row["User"] for row in rows(out)], ["00102"])
    expect_in("5 records: 1 calls (1 out), 0 rejected, 1 malformed, 3 not call records, 2 incomplete", errors)
    expect_in("malformed: <STX>PS|RN1|DA|TI|DU100000|<ETX>", errors)
    expect_in("half a frame at the end: <STX>PS|RN9", errors)
    code, _, errors = host("convert", "--model", "TYPE10004", "-", given=b"no end at all")
    expect(code, 1)
    expect_in("one ends with <CR><LF>", errors)


def simulated_days_convert_to_the_calls_of_the_day():
    """Every model's own form, written by the simulated exchange, gives the same calls back."""
    def day(model):
        capture = subprocess.run(["wine", HOST, "simulate", "--model", model, "--print"], capture_output=True,
                                 timeout=LIMIT).stdout
        code, out, errors = host("convert", "--model", model, "--format", "csv", "-", given=capture)
        expect(code, 0, model + errors)
        return [(row["User"].lstrip("0"), row["Number"], int(row["Duration"])) for row in rows(out)]
    outgoing = [("203", "0041448001122", 192), ("201", "0043123456789", 644), ("203", "0049301234567", 31)]
    whole = [("202", "0327771100", 65), outgoing[0], ("203", "0327771101", 0), outgoing[1], ("201", "0327771102", 250),
             outgoing[2]]
    with concurrent.futures.ThreadPoolExecutor(max_workers=2) as pool:
        for model, calls in zip(ALL_MODELS, pool.map(day, ALL_MODELS)):
            expect(calls, outgoing if model == "TYPE12000" else whole, model)


def classify_names_every_frame():
    def kinds(model, capture):
        code, out, _ = host("classify", "--model", model, "--format", "csv", os.path.join(SAMPLES, capture))
        expect(code, 0, capture)
        return [(row["Kind"] + " " + row["Form"].replace(" " * 14, "~")).strip() for row in rows(out)]
    expect([kind for kind in kinds("TYPE12000", "fias_session.txt") if kind != "other"], [
        "login", "room state <STX>080210400221<ETX>", "room state <STX>080210500111<ETX>",
        "room state <STX>080000700111<ETX>", "room alarm <STX>080210600331<ETX>", "room state <STX>080000000111<ETX>",
        "set-clock <STX>0802104107301511~<ETX>", "set-clock <STX>080033010615----~<ETX>", "set-clock <STX>08021051~<ETX>",
        "set-clock <STX>0802104207301511~<ETX>", "set-clock <STX>08003302XXXX~<ETX>",
        "wake-up confirmation <STX>07021041<ETX>", "wake-up confirmation <STX>07021052<ETX>",
        "wake-up confirmation <STX>07021060<ETX>",
        "call record <STX>00001021040041448001122   00000010014003121511260815~~     <ETX>"])
    expect(kinds("type10016", "mitel_hotel.txt"), [
        "login", "room state <STX>080020400111<ETX>", "room state <STX>080020500221<ETX>",
        "room alarm <STX>080011700331<ETX>", "wake-up confirmation <STX>07002041<ETX>", "other",
        "room state <STX>080031200111<ETX>",
        "call record <STX>00001  3010041448001122   00000010012001921511260800~~     <ETX>", "other", "login",
        "room state <STX>080011800221<ETX>"])


# --- Live links --------------------------------------------------------------------------------------------------------

DAY = ["wakeup 201 answered", "wakeup 202 not answered", "call 203 out", "wakeup-set 203 set", "room 201 clean",
       "room 202 not clean", "call 201 out", "alarm 202 room alarm", "call 203 out", "wakeup-set 203 cleared"]


def live(name, model, simulated=(), listening=(), connect=True):
    """A day between a simulated exchange and a host. Gives the host's events, and what the exchange saw."""
    work, port = folder(name), free_port()
    os.makedirs(os.path.join(work, "log"))
    sides = (["--listen", port], ["--connect", f"127.0.0.1:{port}"])
    seen = os.path.join(work, "exchange.txt")
    exchange = start("simulate", "--model", model, *sides[0 if connect else 1], "--pace", "20", *simulated, output=seen)
    try:
        code, out, errors = host("listen", "--model", model, *sides[1 if connect else 0], "--format", "csv", "--retry",
                                 "1", "--log", "log", *listening, cwd=work)
        expect((code, errors), (0, ""))
    finally:
        exchange.wait(timeout=LIMIT)
    replay_gives_the_same_events(model, work, out)
    with open(seen, encoding="utf-8") as file:
        return rows(out), file.read()


def replay_gives_the_same_events(model, work, out):
    log, = glob.glob(os.path.join(work, "log", "link-*.log"))
    code, again, errors = host("listen", "--model", model, "--replay", log, "--format", "csv")
    expect((code, errors), (0, ""))
    expect(again.splitlines(), out.splitlines(), "the replay differs")


def short(events):
    return [" ".join(word for word in (e["Event"], e["Room"], e["Detail"].split(" 07")[0]) if word) for e in events]


def missing_from(events, day):
    shown = iter(short(events))
    return [wanted for wanted in day if wanted not in shown]  # in this order


def a_serial_style_exchange_over_tcp():
    work = folder("orders")
    orders = os.path.join(work, "orders.txt")
    with open(orders, "w", encoding="ascii") as file:
        file.write("checkin 203 Rossi  # with a name\nwakeup 203 0730\ncheckout 203\n")
    events, seen = live("integral", "TYPE10001", listening=["--orders", orders, "--once"])
    expect(missing_from(events, ["login confirmed"] + DAY), [])
    expect([e["Number"] for e in events if e["Event"] == "call" and e["Detail"] == "out"],
           ["0041448001122", "0043123456789", "0049301234567"])
    for sent in ["<- <STX><ETX>", "-> <ACK>", "order <STX>070020307301<ETX>"]:
        expect_in(sent, seen)
    if "not acknowledged" in seen:
        raise AssertionError(seen)


def the_pms_link():
    events, seen = live("fias", "TYPE12000", listening=["--silent", "1", "--once"])
    expect(missing_from(events, DAY[:2] + ["check-in 203 Rossi"] + DAY[2:] + ["check-out 203", "lost closed by the peer"]), [])
    for sent in ["<- <STX>LS|DA", "<STX>PA|RN201|ASOK|"]:
        expect_in(sent, seen)


def two_legs_of_a_transferred_call_are_told_as_one():
    """The pair is the server's memory of some seconds, so the replay takes it from the log."""
    scenario = os.path.join(folder("scenario"), "transfer.txt")
    with open(scenario, "w", encoding="ascii") as file:
        file.write("call in 201 0327771100 60\ncall out 201 0041448001122 61 4\ncall out 201 0041448001122 61 4\n")
    events, _ = live("transfer", "TYPE10004", simulated=["--scenario", scenario], listening=["--once"])
    expect([event for event in short(events) if event.startswith(("call", "transfer"))],
           ["call 201 in", "call 201 out", "transfer 201 two legs of one call", "call 201 out"])


def an_exchange_with_prompts_that_connects_to_the_host():
    events, seen = live("hotel", "TYPE10016", connect=False, listening=["--user", "hotel", "--password", "secret", "--once"])
    expect(missing_from(events, ["login answered", "wakeup 201 answered", "call 203 out", "room 201 clean",
                                 "room 202 not clean", "alarm 202 room alarm"]), [])
    expect_in("<- hotel<CR>", seen)
    events, seen = live("smdr", "TYPE10019", listening=["--user", "SMDR", "--password", "secret", "--once"])
    expect(missing_from(events, ["login answered", "wakeup 201 answered", "call 203 out", "room 201 clean"]), [])
    expect([e for e in short(events) if e.startswith(("malformed", "other"))], [])
    expect_in("-> ******<CR><LF>", seen)


def faults_of_the_exchange_cost_no_complete_record():
    def fault(case):
        model, kind, wanted = case
        events, _ = live(f"{model}_{kind}", model, simulated=["--fault", kind],
                         listening=["--silent", "3", *(["--for", "12"] if kind == "disconnect" else ["--once"])])
        expect(len([e for e in events if e["Event"] == "call"]), 3 if model == "TYPE12000" else 6, case)
        expect(len([e for e in events if e["Event"] == "room"]), 0 if model == "TYPE10004" else 2, case)
        for event in wanted:
            expect_in(event, short(events))
    with concurrent.futures.ThreadPoolExecutor(max_workers=3) as pool:
        list(pool.map(fault, [
            ("TYPE10001", "half", ["half frame <STX>00001002010041448001122"]),
            ("TYPE10001", "garbage", []),
            ("TYPE10004", "half", []),
            ("TYPE12000", "disconnect", ["lost closed by the peer"]),
            ("TYPE12000", "silence", ["silent nothing for 3 seconds", "heard again"]),
        ]))


def ctrl_c_ends_a_link_cleanly():
    work, port = folder("ctrl_c"), free_port()
    events = os.path.join(work, "events.txt")
    process = start("listen", "--model", "TYPE12000", "--connect", f"127.0.0.1:{port}", output=events)
    for _ in range(100):
        time.sleep(0.1)
        with open(events, encoding="utf-8") as file:
            if "refused" in file.read():
                break
    process.send_signal(signal.SIGINT)
    expect(process.wait(timeout=10), 0)
    with open(events, encoding="utf-8") as file:
        expect_in(" ended", file.read())


def a_serial_line_works_like_the_network():
    """The port is a pseudo-terminal of this system; the settings of the line are the usual ones."""
    work, (exchange, line) = folder("serial"), pty.openpty()
    tty.setraw(line)
    device = os.path.join(os.environ["WINEPREFIX"], "dosdevices", "com9")
    if os.path.islink(device):
        os.unlink(device)
    os.symlink(os.ttyname(line), device)
    try:
        process = start("listen", "--model", "TYPE10001", "--serial", "COM9", "--for", "5",
                        output=os.path.join(work, "events.txt"))
        expect(heard(exchange), b"\2\3", "the host asks for the login")
        os.write(exchange, b"\6\x02080020100111\3")
        expect(heard(exchange), b"\6", "the host acknowledges the frame")
        expect(process.wait(timeout=LIMIT), 0)
    finally:
        os.unlink(device)
    with open(os.path.join(work, "events.txt"), encoding="utf-8") as file:
        expect_in("room          201    clean", file.read())


def heard(terminal):
    ready, _, _ = select.select([terminal], [], [], 10)
    return os.read(terminal, 100) if ready else None


def a_flood_without_end_stays_bounded():
    """A peer that sends noise for ever neither fills the memory nor keeps the link from its next record."""
    work = folder("flood")
    with socket.create_server(("127.0.0.1", 0)) as server:
        process = start("listen", "--model", "TYPE10004", "--connect", f"127.0.0.1:{server.getsockname()[1]}", "--for",
                        "6", output=os.path.join(work, "events.txt"))
        peer, _ = server.accept()
        with peer:
            for _ in range(400):
                peer.sendall(b"x" * 65536)
            with open(os.path.join(SAMPLES, "mitel_pc4.txt"), "rb") as file:
                peer.sendall(b"\r\n" + file.read())
            expect(process.wait(timeout=LIMIT), 0)
    with open(os.path.join(work, "events.txt"), encoding="utf-8") as file:
        text = file.read()
    expect(text.count(" call "), 13)
    expect_in("no end", text)
    expect(len(text) < 100_000, True, "every piece of the noise was told")


SINGLE = [models_lists_the_catalogue_in_every_format, every_command_explains_itself, wrong_command_lines_are_refused,
          convert_cuts_the_same_calls_in_every_format, convert_tells_calls_from_what_is_none, classify_names_every_frame,
          simulated_days_convert_to_the_calls_of_the_day, a_serial_style_exchange_over_tcp, the_pms_link,
          two_legs_of_a_transferred_call_are_told_as_one, an_exchange_with_prompts_that_connects_to_the_host, faults_of_the_exchange_cost_no_complete_record,
          ctrl_c_ends_a_link_cleanly, a_serial_line_works_like_the_network, a_flood_without_end_stays_bounded]


def run(test):
    begin = time.time()
    try:
        test()
        print(f"ok      {test.__name__} ({time.time() - begin:.1f} s)", flush=True)
        return True
    except Exception as error:  # whatever it is, the other tests go on
        print(f"FAILED  {test.__name__}: {type(error).__name__}: {error}", flush=True)
        return False


def main():
    os.makedirs(FOLDER, exist_ok=True)
    part = sys.argv[5] if len(sys.argv) > 5 else ""
    good = part != "" or run(says_that_the_server_is_not_registered)
    registered([])
    try:
        wanted = [test for test in SINGLE if part in test.__name__]
        with concurrent.futures.ThreadPoolExecutor(max_workers=3) as pool:
            results = list(pool.map(run, wanted))
    finally:
        registered(["/u"])
    sys.exit(0 if good and results and all(results) else 1)


if __name__ == "__main__":
    main()
