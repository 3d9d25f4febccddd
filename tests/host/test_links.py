"""Links between a simulated exchange and vintrel-host. See tools.py for the command line."""
import glob
import os

from tools import LIMIT, expect, folder, free_port, host, read, rows, run_all, start

DAY = ["wakeup 201 answered", "wakeup 202 not answered", "call 203 out", "wakeup-set 203 set", "room 201 clean",
       "room 202 not clean", "call 201 out", "alarm 202 room alarm", "call 203 out", "wakeup-set 203 cleared"]
TRANSFER = "call in 201 0327771100 60\ncall out 201 0041448001122 61 4\ncall out 201 0041448001122 61 4\n"
ORDERS = "checkin 203 Rossi  # with a name\nwakeup 203 0730\ncheckout 203\n"
HOTEL = ["--user", "hotel", "--password", "secret", "--once"]

LINKS = {  # what both sides are told; the events of the host, in this order; what the exchange saw; calls and rooms
    "a serial-style exchange over TCP": dict(
        model="TYPE10001", listening=["--orders", "orders.txt", "--once"], events=["login confirmed", *DAY],
        seen=["<- <STX><ETX>", "-> <ACK>", "order <STX>070020307301<ETX>"], counts=(6, 2)),
    "the PMS link": dict(
        model="TYPE12000", listening=["--silent", "1", "--once"],
        events=[*DAY[:2], "check-in 203 Rossi", *DAY[2:], "check-out 203", "lost closed by the peer"],
        seen=["<- <STX>LS|DA", "<STX>PA|RN201|ASOK|"], counts=(3, 2)),
    # The pair is the server's memory of some seconds, so the replay takes it from the log.
    "two legs of a transferred call are told as one": dict(
        model="TYPE10004", simulated=["--scenario", "transfer.txt"],
        events=["call 201 in", "call 201 out", "transfer 201 two legs of one call", "call 201 out"], counts=(3, 0)),
    "an exchange with prompts that connects to the host": dict(
        model="TYPE10016", connect=False, listening=HOTEL,
        events=["login answered", DAY[0], *DAY[4:6], *DAY[7:8]], seen=["<- hotel<CR>"], counts=(6, 2)),
    "an exchange with prompts": dict(
        model="TYPE10019", listening=["--user", "SMDR", *HOTEL[2:]],
        events=["login answered", DAY[0], DAY[2], DAY[4]], seen=["-> ******<CR><LF>"], counts=(6, 2)),
    # No fault costs a complete record.
    "half a frame": dict(
        model="TYPE10001", simulated=["--fault", "half"], events=["half frame <STX>00001002010041448001122"],
        counts=(6, 2)),
    "garbage": dict(model="TYPE10001", simulated=["--fault", "garbage"], counts=(6, 2)),
    "half a line": dict(model="TYPE10004", simulated=["--fault", "half"], counts=(6, 0)),
    "a disconnection": dict(
        model="TYPE12000", simulated=["--fault", "disconnect"], listening=["--for", "12"],
        events=["lost closed by the peer"], counts=(3, 2)),
    "a silence": dict(
        model="TYPE12000", simulated=["--fault", "silence"], listening=["--silent", "3", "--once"],
        events=["silent nothing for 3 seconds", "heard again"], counts=(3, 2)),
}


def link(name, model, simulated=(), listening=("--once",), connect=True, events=(), seen=(), counts=(0, 0)):
    """A day between a simulated exchange and a host, and the host's replay of its log."""
    def test():
        work, port = folder(name.replace(" ", "_")), free_port()
        os.makedirs(os.path.join(work, "log"))
        for file_name, text in (("orders.txt", ORDERS), ("transfer.txt", TRANSFER)):
            with open(os.path.join(work, file_name), "w", encoding="ascii") as file:
                file.write(text)
        sides = (["--listen", port], ["--connect", f"127.0.0.1:{port}"])
        told = os.path.join(work, "exchange.txt")
        exchange = start("simulate", "--model", model, *sides[0 if connect else 1], "--pace", "20", *simulated,
                         output=told, cwd=work)
        try:
            code, out, errors = host("listen", "--model", model, *sides[1 if connect else 0], "--format", "csv",
                                     "--retry", "1", "--log", "log", *listening, cwd=work)
            expect((code, errors), (0, ""))
        finally:
            exchange.wait(timeout=LIMIT)
        log, = glob.glob(os.path.join(work, "log", "link-*.log"))
        expect(host("listen", "--model", model, "--replay", log, "--format", "csv"), (0, out, ""), "the replay differs")
        kinds = [row["Event"] for row in rows(out)]
        expect((kinds.count("call"), kinds.count("room")), counts, "calls and room states")
        expect(kinds.count("malformed"), 0)
        expect(kinds.count("heard again") <= kinds.count("silent"), True, "heard again, though never silent")
        shown = iter([" ".join(word for word in (row["Event"], row["Room"], row["Detail"].split(" 07")[0]) if word)
                      for row in rows(out)])
        expect([wanted for wanted in events if wanted not in shown], [], "events that did not come in this order")
        text = read(told)
        expect([part for part in seen if part not in text], [], text)
        expect("not acknowledged" in text, False, text)
    test.__name__ = name
    return test


if __name__ == "__main__":
    run_all([link(name, **how) for name, how in LINKS.items()])
