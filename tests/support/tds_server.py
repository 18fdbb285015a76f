#!/usr/bin/env python3
"""A server on the loopback that speaks as much of TDS 7.4 as a driver needs to run statements.

It has no database: the statements in Server.answer() have prepared answers and failures, a query
that is none of them has one row, and everything else changes one row. Prints its port, then a line
for every request; ends when its standard input does. With an argument it logs in whoever gives that
password, and nobody else."""
import datetime
import socket
import struct
import sys
import threading

COLLATION = bytes([0x04, 0x08, 0xD0, 0x00, 0x00])  # Chinese, case-insensitive


def ucs2(text):
    return text.encode("utf-16-le")


def b_text(text):
    return bytes([len(ucs2(text)) // 2]) + ucs2(text)


def us_text(text):
    return struct.pack("<H", len(ucs2(text)) // 2) + ucs2(text)


class Column:
    def __init__(self, name, info, write):
        self.name, self.info, self.write = name, info, write


def fixed(kind, size, pack):
    return bytes([kind, size]), lambda v: b"\0" if v is None else bytes([size]) + pack(v)


def money(value):
    units = round(value)
    return struct.pack("<iI", units >> 32, units & 0xFFFFFFFF)


def date(value):
    days = (value - datetime.datetime(1900, 1, 1)).days
    rest = value - datetime.datetime(1900, 1, 1) - datetime.timedelta(days=days)
    return struct.pack("<iI", days, round(rest.total_seconds() * 300))


def varchar(length):
    def write(v):
        if v is None:
            return b"\xff\xff"
        data = v.encode("gbk")
        return struct.pack("<H", len(data)) + data
    return bytes([0xA7]) + struct.pack("<H", length) + COLLATION, write


def nvarchar(length):
    def write(v):
        if v is None:
            return b"\xff\xff"
        return struct.pack("<H", len(ucs2(v))) + ucs2(v)
    return bytes([0xE7]) + struct.pack("<H", length * 2) + COLLATION, write


def nvarchar_max():
    def write(v):
        if v is None:
            return b"\xff" * 8
        data = ucs2(v)
        parts = b"".join(struct.pack("<I", len(data[i:i + 4000])) + data[i:i + 4000]
                         for i in range(0, len(data), 4000))
        return struct.pack("<Q", len(data)) + parts + struct.pack("<I", 0)
    return bytes([0xE7]) + b"\xff\xff" + COLLATION, write


def decimal(precision, scale):
    def write(v):
        if v is None:
            return b"\0"
        units = abs(v)
        return bytes([17, 1 if v >= 0 else 0]) + units.to_bytes(16, "little")
    return bytes([0x6A, 17, precision, scale]), write


TYPES = {
    "bit": fixed(0x68, 1, lambda v: bytes([v])),
    "tinyint": fixed(0x26, 1, lambda v: bytes([v])),
    "smallint": fixed(0x26, 2, lambda v: struct.pack("<h", v)),
    "int": fixed(0x26, 4, lambda v: struct.pack("<i", v)),
    "bigint": fixed(0x26, 8, lambda v: struct.pack("<q", v)),
    "money": fixed(0x6E, 8, money),
    "float": fixed(0x6D, 8, lambda v: struct.pack("<d", v)),
    "datetime": fixed(0x6F, 8, date),
    "varchar": varchar(60),
    "nvarchar": nvarchar(60),
    "nvarchar(max)": nvarchar_max(),
    "decimal": decimal(20, 6),
}


def result(columns, rows):
    out = bytes([0x81]) + struct.pack("<H", len(columns))
    for name, kind in columns:
        out += struct.pack("<IH", 0, 0x0009) + TYPES[kind][0] + b_text(name)
    for row in rows:
        out += b"\xd1" + b"".join(TYPES[kind][1](value) for (_, kind), value in zip(columns, row))
    return out, 0x10, 0xC1, len(rows)


def count(number):
    return b"", 0x10, 0xC3, number


def error(number, text, severity=14, token=0xAA):
    body = struct.pack("<iBB", number, 1, severity) + us_text(text) + b_text("own") + b_text("")
    body += struct.pack("<I", 1)
    return bytes([token]) + struct.pack("<H", len(body)) + body, 0x02, 0xC3, 0


def said(text):
    return error(0, text, 0, 0xAB)[0]


def env(kind, new, old):
    body = bytes([kind]) + new + old
    return b"\xe3" + struct.pack("<H", len(body)) + body


class Hang(Exception):
    pass


class Die(Exception):
    pass


class Session(threading.Thread):
    def __init__(self, connection, server):
        super().__init__(daemon=True)
        self.socket, self.server = connection, server
        self.transaction = 0

    def read(self, length):
        data = b""
        while len(data) < length:
            part = self.socket.recv(length - len(data))
            if not part:
                raise EOFError
            data += part
        return data

    def request(self):
        kind, data = 0, b""
        while True:
            kind, status, length = struct.unpack(">BBH", self.read(4))
            self.read(4)
            data += self.read(length - 8)
            if status & 1:
                return kind, data

    def send(self, data):
        size = 4096 - 8
        parts = [data[i:i + size] for i in range(0, len(data), size)] or [b""]
        for number, part in enumerate(parts):
            last = 1 if number == len(parts) - 1 else 0
            self.socket.sendall(
                struct.pack(">BBHHBB", 4, last, len(part) + 8, 0, (number + 1) & 255, 0) + part)

    def done(self, status, command=0, rows=0):
        return b"\xfd" + struct.pack("<HHQ", status, command, rows)

    def begin(self):
        self.transaction += 1
        self.server.counter += 1
        return env(8, bytes([8]) + struct.pack("<Q", self.server.counter), b"\0")

    def end(self, kind):
        self.transaction = 0
        return env(kind, b"\0", bytes([8]) + struct.pack("<Q", self.server.counter))

    # Texts of a login stand where a table of offsets and lengths says; the password is scrambled.
    def password(self, data):
        start, length = struct.unpack("<HH", data[44:48])
        scrambled = data[start:start + 2 * length]
        plain = bytes((b ^ 0xA5) >> 4 | ((b ^ 0xA5) << 4 & 0xF0) for b in scrambled)
        return plain.decode("utf-16-le")

    def login(self, data):
        if self.server.password is not None and self.password(data) != self.server.password:
            tokens, status, command, rows = error(18456, "Login failed.", 14)
            self.send(tokens + self.done(status))
            raise Die
        out = env(1, b_text("own"), b_text("master"))
        out += env(7, bytes([5]) + COLLATION, b"\0")
        out += env(2, b_text("zh"), b_text(""))
        program = ucs2("Microsoft SQL Server")
        body = bytes([1]) + struct.pack(">I", 0x74000004) + bytes([len(program) // 2]) + program
        body += bytes([16, 0, 0, 0])
        out += b"\xad" + struct.pack("<H", len(body)) + body
        out += env(4, b_text("4096"), b_text("4096"))
        self.send(out + self.done(0))

    def batch(self, data):
        length = struct.unpack("<I", data[:4])[0]
        text = data[length:].decode("utf-16-le")
        self.server.log("batch " + text)
        out = b""
        answers = self.server.answer(self, text)
        for i, (tokens, status, command, rows) in enumerate(answers):
            more = 1 if i < len(answers) - 1 else 0
            out += tokens + self.done(status | more, command, rows)
        self.send(out)

    def manage(self, data):
        length = struct.unpack("<I", data[:4])[0]
        what = struct.unpack("<H", data[length:length + 2])[0]
        rest = data[length + 2:]
        names = {5: "begin", 7: "commit", 8: "rollback"}
        self.server.log(names.get(what, str(what)))
        if what == 5:
            self.send(self.begin() + self.done(0))
            return
        if what == 7 and self.server.loses_commit:
            self.server.loses_commit = False
            raise Die
        if self.transaction == 0:
            tokens, status, command, rows = error(3903, "no transaction", 16)
            self.send(tokens + self.done(status))
            return
        out = self.end(9 if what == 7 else 10)
        # A flag asks to begin the next one at once.
        flags = rest[1 + rest[0]] if len(rest) > 1 + rest[0] else 0
        if flags & 1:
            out += self.begin()
        self.send(out + self.done(0))

    def run(self):
        try:
            while True:
                kind, data = self.request()
                if kind == 0x12:
                    options = struct.pack(">BHH", 0, 11, 6) + struct.pack(">BHH", 1, 17, 1) + b"\xff"
                    self.send(options + bytes([16, 0, 0, 0, 0, 0]) + b"\x02")
                elif kind == 0x10:
                    self.login(data)
                elif kind == 0x01:
                    try:
                        self.batch(data)
                    except Hang:
                        self.server.log("hanging")
                elif kind == 0x0E:
                    self.manage(data)
                elif kind == 0x06:
                    self.server.log("attention")
                    self.send(self.done(0x20))
                else:
                    self.server.log("unknown request %#x" % kind)
                    self.send(self.done(0))
        except (EOFError, Die, ConnectionError):
            pass
        self.server.log("closed")
        self.socket.close()


class Server:
    def __init__(self, password):
        self.password = password
        self.counter = 0
        self.loses_commit = False
        self.listener = socket.create_server(("127.0.0.1", 0))

    def log(self, line):
        print(line, flush=True)

    def answer(self, session, text):
        if text == "select types":
            return [result([("b", "bit"), ("t", "tinyint"), ("s", "smallint"), ("i", "int"),
                            ("g", "bigint"), ("m", "money"), ("f", "float"), ("d", "datetime"),
                            ("c", "varchar"), ("n", "nvarchar"), ("x", "nvarchar(max)"),
                            ("e", "decimal"), ("", "int")],
                           [(1, 255, -7, -5, 9000000000000000000, -123456, 0.1,
                             datetime.datetime(2004, 6, 30, 12, 13, 14, 996667), "text宽",
                             "宽😀", "长😀" * 9000, 1, 7),
                            (None,) * 13])]
        if text == "batch fails":
            return [count(1), error(2627, "Violation of PRIMARY KEY constraint."), count(1)]
        if text == "fails":
            return [error(2627, "Violation of PRIMARY KEY constraint.")]
        if text == "select and stop":
            rows = result([("i", "int")], [(1,), (2,)])[0]
            tokens, status, command, _ = error(8115, "Arithmetic overflow.", 16)
            return [(rows + tokens, status, command, 2)]
        if text == "select with words":
            tokens, status, command, rows = result([("i", "int")], [(5,)])
            return [(said("before") + tokens + said("behind"), status, command, rows)]
        if text == "select nothing":
            return [result([("i", "int"), ("", "varchar")], [])]
        if text.startswith("update") and "cValue = '0'" in text:
            return [count(0)]
        if text == "select @@trancount":
            return [result([("", "int")], [(session.transaction,)])]
        if text == "deadlock":
            tokens, status, command, rows = error(1205, "Transaction was deadlocked.", 13)
            return [(tokens + (session.end(10) if session.transaction else b""), status, command, 0)]
        if text == "hang":
            raise Hang
        if text == "die":
            raise Die
        if text == "lose commit":
            self.loses_commit = True
        if text.startswith("select big"):
            return [result([("id", "int"), ("n", "nvarchar"), ("m", "money")],
                           [(i, "名称%d" % i, i * 10000) for i in range(10000)])]
        if text.startswith("select "):
            return [result([("cValue", "varchar")], [("7",)])]
        return [count(1)]

    def run(self):
        self.log(str(self.listener.getsockname()[1]))
        while True:
            connection, _ = self.listener.accept()
            connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            Session(connection, self).start()


server = Server(sys.argv[1] if len(sys.argv) > 1 else None)
threading.Thread(target=server.run, daemon=True).start()
sys.stdin.read()
