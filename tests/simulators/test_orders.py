"""Orders of the four driven exchanges through the server's COM classes, against exchanges that work and that fail.

usage: test_orders.py ORDER_CLIENT VINTREL_DLL VINTREL_HOST WORK_FOLDER [PART_OF_A_SCENARIO_NAME]
WORK_FOLDER is emptied first. Needs wine in the path and its prefix in WINEPREFIX. Scenarios run side by side, each with
a host process of its own; the time from an order to its verdict is measured in that process.
"""
import base64
import concurrent.futures
import hashlib
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import threading

from exchanges import PASSWORD, USER, Grandstream, Innovaphone, IpOffice, make_certificate

CLIENT, SERVER, PROGRAM, FOLDER = (os.path.abspath(path) for path in sys.argv[1:5])
TOKEN = hashlib.md5((USER + PASSWORD).encode()).hexdigest().upper()
TYPES = {Innovaphone: "TYPE10012", Grandstream: "TYPE10020", IpOffice: "TYPE10017"}
NAMES = {Innovaphone: "innovaphone", Grandstream: "Grandstream", IpOffice: "IP Office"}
PANASONIC = "TYPE10019"
OPERATIONS = {"wakeup": "ComEventClockTX", "checkin": "ComEventCheckInTX", "checkout": "ComEventCheckOutTX",
              "name": "ComEventUserNameTX"}
measured, measuring = [], threading.Lock()


def expect(got, wanted, what):
    if got != wanted:
        raise AssertionError(f"{what}\n      got    {got!r}\n      wanted {wanted!r}")


def windows(path):
    return "Z:" + path.replace("/", "\\")


def settings_folder(port, host="127.0.0.1", unit="127.0.0.1"):
    """A new folder with both configuration files."""
    folder = tempfile.mkdtemp(dir=FOLDER)
    with open(os.path.join(folder, "Quindara.cfg"), "wb") as file:
        texts = {156: host, 158: USER, 159: PASSWORD}
        for record in range(1, 161):
            text = texts.get(record, "").encode("cp1252")
            content = struct.pack("<i", port) if record == 157 else struct.pack("<H", len(text)) + text
            file.write(content.ljust(624, b"\0"))
    with open(os.path.join(folder, "Vintrel.ini"), "w", encoding="ascii") as file:
        file.write(f"[IP_OFFICE]\nhost={unit}\nport={port}\n[USERS]\n204=0a1b2c3d\n"
                   "[WAKEUP_RESPONSE]\nFallback=0123\n")
    return folder


class Host:
    """A host process with a documents folder of its own."""

    def __init__(self, kind, port=0, environment=(), **addresses):
        self.type, self.folder = kind, settings_folder(port, **addresses)
        settings = dict(os.environ, **dict(environment))
        self.errors = open(os.path.join(self.folder, "errors"), "wb+")
        self.process = subprocess.Popen(["wine", CLIENT, windows(SERVER)], env=settings, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=self.errors)
        self.said = b""
        self.do("SetAllUserCommonDocumentsDirA", windows(self.folder))
        self.initialize()

    def initialize(self):
        for stage in ("InitializeServer", "InitializeServerSec"):
            expect(self.do(stage, self.type)[0], "0", "initialisation")

    def send(self, *words):
        self.process.stdin.write("\t".join(str(word) for word in words).encode() + b"\n")
        self.process.stdin.flush()

    def do(self, *words):
        """The answer and its milliseconds."""
        self.send(*words)
        line = self.process.stdout.readline()
        self.said += line
        *answer, milliseconds = line.decode().rstrip("\r\n").split("\t")
        return "\t".join(answer), int(milliseconds)

    def order(self, what, room, *words):
        return self.do(OPERATIONS[what], self.type, room, *words)

    def meanwhile(self, what, room, *words):
        """This order will come during the next one."""
        self.send("during", 700, OPERATIONS[what], self.type, room, *words)

    def check_out(self):
        return self.order("checkout", 204, 0)

    def end(self):
        """The host lets go of the server, which has nothing left to do, and has told nobody a secret."""
        rest, _ = self.process.communicate(timeout=20)
        expect(rest.strip(), b"unload: yes", "DllCanUnloadNow after the last order")
        expect(self.process.returncode, 0, "end of the host process")
        self.errors.seek(0)
        said = self.said + self.errors.read()
        for sample in (b"narrow output is seen", b"wide output is seen"):
            expect(sample in said, True, "debugger output that is looked through")
        for secret in (PASSWORD, TOKEN, base64.b64encode(f"{USER}:{PASSWORD}".encode()).decode()):
            expect(secret.encode() in said, False, "a secret in the output of the process")


def expect_fault(host, kind, fault, most):
    """The order fails within the limit. What it took goes into the report."""
    answer, milliseconds = host.check_out()
    with measuring:
        measured.append((kind, fault, milliseconds))
    expect(answer, "<ERROR>", f"verdict of {kind}: {fault}")
    expect(milliseconds <= most, True, f"{kind}: {fault} took {milliseconds} ms, limit {most}")


# --- orders of an exchange -------------------------------------------------------------------------------------------

def make_exchange(kind, *how):
    return kind(FOLDER, *how) if kind is Grandstream else kind(*how)


def carried_out(exchange, orders, **addresses):
    """Every order is confirmed. Gives the orders as the exchange got them."""
    host = Host(TYPES[type(exchange)], exchange.port, **addresses)
    for order in orders:
        expect(host.order(*order)[0], "<OK>", order)
    host.end()
    expect(len(exchange.orders()), len(orders), "number of orders")
    return exchange.orders()


def innovaphone_carries_out_orders():
    exchange = Innovaphone()
    page = "/PBX0/ADMIN/mod_cmd_login.xml?cmd=submit-"
    expect(carried_out(exchange, [("wakeup", 204, "0730", "1511", 2, 2), ("checkin", 204, 'Renè "R" Rossi', 1, 1)]), [
        page + "wakeup&cn=204&name=wakeup-moh-en&num=&h=07&m=30&s=00&retry=2&mult=on&to=300&fallback=123&wakeup=&guid=*",
        page + "object&cfnr=15&busy-out=1&cn=204&dn=Ren%C3%A8%20%22R%22%20Rossi&filter=checkin&guid=*"], "targets")
    first = exchange.received[0].decode()
    expect(first.startswith("GET /PBX0/"), True, "method of " + first)
    expect("Authorization" in first, False, "credentials before they were asked for")


def grandstream_carries_out_orders():
    exchange = Grandstream(FOLDER, "", True)  # its certificate may be over, and for another name
    target, = carried_out(exchange, [("checkin", 204, "Renè & Co", 4, 0)])
    start = (f"/pmsapi?token={TOKEN}&format=xml&data=%3Cpms_data_request%3E%3Ccheckin%3E%3Caddress%3E204%3C/address%3E"
             "%3Croom%3E204%3C/room%3E%3Caccount%3E204%3C/account%3E%3Clanguage%3EES_ES%3C/language%3E"
             "%3Cfirstname%3ERen%C3%A8%20&%20Co%3C/firstname%3E%3Clastname%3E%3C/lastname%3E%3Cdatein%3E")
    expect((target[:len(start)], target[-23:]), (start, "%3C/pms_data_request%3E"), "target")
    for request in exchange.received:
        expect(request.startswith(b"POST "), True, "method of " + request.decode())
        expect([line for line in request.split(b"\r\n") if line.lower().startswith((b"format", b"content-length"))],
               [b"format: xml", b"Content-Length: 0"], "headers")


def ip_office_carries_out_all_orders():
    exchange = IpOffice()
    rights = "&lt;UserRights&gt;{}&lt;/UserRights&gt;"
    name = "&lt;FullName&gt;{}&lt;/FullName&gt;"
    orders = {
        ("checkin", 204, "Renè <R> & 𝄞", 1, 1):
            rights.format("CheckIn") + name.format("Ren&#232; &lt;R&gt; & &#119070;"),
        ("checkin", 204, "Rossi", 1, 0): rights.format("CheckIn"),
        ("checkout", 204, 1): rights.format("CheckOut") + name.format(""),
        ("checkout", 204, 0): rights.format("CheckOut"),
        ("name", 204, "Rossi"): name.format("Rossi"),
    }
    requests = carried_out(exchange, orders, host="unit.example", unit="localhost")
    declaration = '<?xml version="1.0" encoding="utf-8"?>'
    for request, (order, elements) in zip(requests, orders.items()):
        header, _, body = request.decode("ascii").partition("\r\n\r\n")
        space = body.partition('<SetUnitConfiguration xmlns="')[2].partition('"')[0]
        expect(body, declaration + '<soap:Envelope xmlns:soap="http://schemas.xmlsoap.org/soap/envelope/" '
               'xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:xsd="http://www.w3.org/2001/XMLSchema">'
               f'<soap:Body><SetUnitConfiguration xmlns="{space}"><unitIPAddress>unit.example</unitIPAddress>'
               f'<portNumber>{exchange.port}</portNumber><accountName>{USER}</accountName>'
               f'<accountPassword>{PASSWORD}</accountPassword><configurationData>'
               + declaration.replace("<", "&lt;").replace(">", "&gt;") +
               '&lt;AvayaIPOConfiguration Version="1.0"&gt;&lt;Users&gt;&lt;User Guid="0a1b2c3d" Opp="Update"&gt;'
               f'{elements}&lt;/User&gt;&lt;/Users&gt;&lt;/AvayaIPOConfiguration&gt;</configurationData>'
               '<batchTransaction>true</batchTransaction></SetUnitConfiguration></soap:Body></soap:Envelope>', order)
        expect(header.split("\r\n"), [
            "POST /IPOConfigurationService HTTP/1.1",
            "User-Agent: Mozilla/4.0 (compatible; MSIE 6.0; MS Web Services Client Protocol 4.0.30319.42000)",
            "Content-Type: text/xml; charset=utf-8", f'SOAPAction: "{space}/IPOConfigService/SetUnitConfiguration"',
            f"Host: localhost:{exchange.port}", f"Content-Length: {len(body)}", "Expect: 100-continue"], order)


# --- faults of the network --------------------------------------------------------------------------------------------

def long_fault(kind, fault, most):
    def scenario():
        exchange = make_exchange(kind, fault)
        host = Host(TYPES[kind], exchange.port)
        expect_fault(host, NAMES[kind], fault, most)
        exchange.recover()
        expect(host.check_out()[0], "<OK>", f"the order after {fault}")
        host.end()
    scenario.__name__ = f"{NAMES[kind]} {fault}"
    return scenario


def quick_faults(kind, faults):
    def scenario():
        elsewhere = make_exchange(kind)
        exchange = make_exchange(kind, "refused")
        exchange.elsewhere = f"{'https' if kind is Grandstream else 'http'}://127.0.0.1:{elsewhere.port}/"
        host = Host(TYPES[kind], exchange.port)
        expect_fault(host, NAMES[kind], "refused", 4000)
        exchange.recover()
        expect(host.check_out()[0], "<OK>", "the order after refused")
        memory = int(host.do("memory")[0])
        for fault in faults:
            exchange.fault = fault
            exchange.received.clear()
            expect_fault(host, NAMES[kind], fault, 5000)
            expect(len(exchange.orders()), 1, f"{fault}: how often the order reached the exchange")
            exchange.fault = ""
            expect(host.check_out()[0], "<OK>", f"the order after {fault}")
        grown = int(host.do("memory")[0]) - memory
        expect(grown < 16 * 1024, True, f"{NAMES[kind]}: the faults made the process grow by {grown} KiB")
        expect(elsewhere.received, [], "what a redirect brought to another server")
        host.end()
    scenario.__name__ = f"{NAMES[kind]} quick faults"
    return scenario


def another_order_meanwhile(kind):
    def scenario():
        exchange = make_exchange(kind, "late")
        host = Host(TYPES[kind], exchange.port)
        host.meanwhile("checkin", 9, "Bianchi", 0, 1)
        answer, milliseconds = host.order("checkout", 204, 1)
        expect(answer, "during: <ERROR>\t<OK>", "both verdicts")
        expect(milliseconds >= 1900, True, f"the exchange's answer was awaited: {milliseconds} ms")
        expect(len(exchange.orders()), 1, "number of orders that reached the exchange")
        exchange.fault = ""
        expect(host.check_out()[0], "<OK>", "the next order")
        host.end()
    scenario.__name__ = f"{NAMES[kind]} another order meanwhile"
    return scenario


def ip_office_of_an_unknown_name():
    host = Host("TYPE10017", 8085, unit="no-such-unit.invalid")
    expect_fault(host, "IP Office", "unknown name", 11000)
    host.end()


# --- Panasonic --------------------------------------------------------------------------------------------------------

class Telephony:
    """The files by which the stand-in service is told how to behave, and tells what it was called for."""

    def __init__(self):
        folder = tempfile.mkdtemp(dir=FOLDER)
        self.log, self.behaviour = os.path.join(folder, "log"), os.path.join(folder, "behaviour")
        self.behave()

    def behave(self, **how):
        how.setdefault("lines", "EXT00101,-EXT00204,ext00204 ,EXT12345")
        with open(self.behaviour, "w", encoding="ascii") as file:
            file.writelines(f"{key}={value}\n" for key, value in how.items())

    def host(self):
        return Host(PANASONIC, environment={
            "WINEDLLOVERRIDES": "tapi32=n;mscoree,mshtml=",
            "VINTREL_TAPI_LOG": windows(self.log),
            "VINTREL_TAPI_BEHAVIOUR": windows(self.behaviour)})

    def calls(self):
        """Since the last time."""
        if not os.path.exists(self.log):
            return []
        with open(self.log, encoding="ascii") as file:
            calls = file.read().splitlines()
        os.remove(self.log)
        return calls


def panasonic_carries_out_orders():
    telephony = Telephony()
    host = telephony.host()
    expect(telephony.calls(), ["lineInitializeExA module=1 name=Vintrel version=30000 size=24 options=0"], "start-up")
    expect(host.order("checkin", 204, " Renè ", 1, 0)[0], "<OK>", "check-in")
    wanted = []
    for device in range(3):
        wanted += [f"lineNegotiateAPIVersion application=a0 device={device} low=10003 high=30000",
                   f"lineGetDevCapsA application=a0 device={device} version=2000{device} extension=0 size=2301"]
    wanted += ["lineNegotiateAPIVersion application=a0 device=2 low=10003 high=30000",
               "lineOpen application=a0 device=2 version=20002 extension=0 instance=544e4956 privileges=6 media=4 "
               "parameters=0"]
    for command, *name in ((63, 0, 0, b""), (13, 5, 56, "Renè".encode("cp1252"))):
        block = b"=" + bytes(11) + struct.pack("<I12xII25s", command, *name)
        wanted.append(f"lineDevSpecific line=b2 address=544e4956 call=0 size=61 block={block.hex()}")
    expect(telephony.calls(), [*wanted, "lineClose line=b2"], "a check-in")
    expect(host.do("UnInitializeServer", PANASONIC)[0], "0", "the end")
    expect(telephony.calls(), ["lineShutdown application=a0 open=0"], "shut-down")
    host.end()


def panasonic_faults():
    telephony = Telephony()
    telephony.behave(initialize="fail")
    host = telephony.host()
    telephony.calls()
    expect_fault(host, "Panasonic", "start-up failed", 1000)
    expect(telephony.calls(), [], "calls without a start-up")
    telephony.behave()
    host.initialize()
    expect(host.check_out()[0], "<OK>", "the order after the start-up")
    faults = {
        "no such line": {"lines": "EXT00101,EXT002040"},
        "negotiation failed": {"negotiate": "fail", "lines": "EXT00204"},
        "capabilities failed": {"capabilities": "fail", "lines": "EXT00204"},
        "open failed": {"open": "fail"},
        "request failed": {"request": "fail"},
        "no reply": {"reply": "none"},
        "reply for another request": {"reply": "other"},
        "reply too late": {"reply": "late"},
    }
    for fault, behaviour in faults.items():
        telephony.behave(**behaviour)
        expect_fault(host, "Panasonic", fault, 4000)
        telephony.behave()
        expect(host.check_out()[0], "<OK>", f"the order after {fault}")
    telephony.behave(reply="early")
    expect(host.check_out()[0], "<OK>", "a reply before the request has returned")
    telephony.behave(reply="none")
    host.meanwhile("checkout", 101, 0)
    expect(host.check_out()[0], "during: <ERROR>\t<ERROR>", "an order during another")
    opened = [call for call in telephony.calls() if call.startswith("lineOpen")]
    expect([call for call in opened if "device=0" in call], [], "lines that the order in between opened")
    # A reply that comes after the shut-down finds nobody.
    telephony.behave(reply="late")
    host.check_out()
    host.do("UnInitializeServer", PANASONIC)
    expect(host.check_out()[0], "<ERROR>", "an order without the service")
    host.end()


# --- the reference host -----------------------------------------------------------------------------------------------

def the_host_program_shows_commands_and_verdicts():
    exchange = Innovaphone()
    settings = ("--settings", windows(settings_folder(exchange.port)))
    order = ("checkout", "--model", "TYPE10012", "--room", "204", *settings)

    def run(*words):
        done = subprocess.run(["wine", PROGRAM, *words], capture_output=True, timeout=60, check=False)
        return done.stdout.decode().strip(), done.returncode

    subprocess.run(["wine", "regsvr32", "/s", windows(SERVER)], check=True, timeout=60)
    try:
        expect(run("checkin", "--model", "type12000", "--room", "204", "--name", "Renè", "--language", "it"),
               ("<STX>GI|RN204|GNRenè|GLIT|<ETX>", 0), "a command")
        expect(run("name", "--model", "TYPE10020", "--room", "204", "--name", "R."), ("", 1), "no order of this model")
        expect(run(*order), ("<OK>", 0), "an order carried out")
        exchange.fault = "wrong"
        expect(run(*order), ("<ERROR>", 1), "an order that the exchange refuses")
        expect(run("wakeup", "--model", "TYPE10012", "--room", "204"), ("", 2), "an order without its time")
    finally:
        subprocess.run(["wine", "regsvr32", "/s", "/u", windows(SERVER)], check=True, timeout=60)


NETWORK_FAULTS = ["reset", "endless", "garbage", "wrong", "empty", "server_error"]
HTTP_FAULTS = NETWORK_FAULTS + ["endless_401", "redirect"]
SCENARIOS = [
    # Ten seconds to the connection, and another ten to the answer, and some for a busy machine.
    *[long_fault(kind, "absent", 12000) for kind in TYPES],
    *[long_fault(kind, fault, 12000 if kind is Innovaphone else 22000)
      for kind in TYPES for fault in ("silence", "drip")],
    long_fault(Grandstream, "no_handshake", 12000),
    long_fault(Grandstream, "no_tls", 5000),
    ip_office_of_an_unknown_name,
    panasonic_faults,
    panasonic_carries_out_orders,
    innovaphone_carries_out_orders,
    grandstream_carries_out_orders,
    ip_office_carries_out_all_orders,
    quick_faults(Innovaphone, HTTP_FAULTS),
    quick_faults(Grandstream, HTTP_FAULTS),
    quick_faults(IpOffice, NETWORK_FAULTS),
    *[another_order_meanwhile(kind) for kind in TYPES],
    the_host_program_shows_commands_and_verdicts,
]


def run(scenario):
    try:
        scenario()
        return None
    except Exception as error:  # whatever it is, the other scenarios go on
        return f"{type(error).__name__}: {error}"


def main():
    shutil.rmtree(FOLDER, ignore_errors=True)
    os.makedirs(FOLDER)
    for expired in (False, True):
        make_certificate(FOLDER, expired)
    wanted = [s for s in SCENARIOS if len(sys.argv) < 6 or sys.argv[5] in s.__name__]
    with concurrent.futures.ThreadPoolExecutor(max_workers=len(SCENARIOS)) as pool:
        results = list(zip(wanted, pool.map(run, wanted)))
    for kind, fault, milliseconds in sorted(measured):
        print(f"  {kind:12} {fault:28} {milliseconds:6} ms")
    failed = [(scenario, error) for scenario, error in results if error]
    for scenario, error in failed:
        print(f"FAILED {scenario.__name__}: {error}")
    print(f"{len(results)} scenarios, {len(failed)} failed")
    sys.exit(1 if failed or not results else 0)


if __name__ == "__main__":
    main()
