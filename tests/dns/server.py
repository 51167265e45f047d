#!/usr/bin/env python3
"""A small DNS server for the lookup tests and benchmarks, on 127.0.0.1:53 (UDP and TCP).

Answers A queries after a set delay: h<N>.up.invalid gets 10.<N/65536>.<N/256%256>.<N%256>,
m<N>.up.invalid gets two addresses (10.200.x.y, then 10.201.x.y), many<N>.up.invalid gets N
addresses (10.202.0.0 on, in order), localhost gets 127.0.0.1 (asked on a machine without
/etc/hosts, where the server stands in for that file, and so not logged); every other name
gets NXDOMAIN. Names are matched without regard to case. An answer too long for a UDP reply (512 bytes) goes out truncated, with no records, and the
resolver asks again over TCP. Each query is logged as one line, "<name> <type>", to the log
file. Many queries wait out their delay at the same time, so the server answers a burst of
queries as fast as a real one would.

Usage: server.py DELAY_MS LOG_FILE READY_FILE  (READY_FILE is created once the port is bound)
"""
import heapq
import re
import select
import socket
import struct
import sys
import time

PATTERN = re.compile(rb"^(h|m|many)(\d+)\.up\.invalid$", re.IGNORECASE)


def question(packet):
    """The query's name (bytes, dotted), type and the end offset of its question."""
    labels, at = [], 12
    while packet[at]:
        length = packet[at]
        labels.append(packet[at + 1:at + 1 + length])
        at += 1 + length
    qtype, _ = struct.unpack("!HH", packet[at + 1:at + 5])
    return b".".join(labels), qtype, at + 5


def addresses(name):
    if name.lower() == b"localhost":
        return [bytes([127, 0, 0, 1])]
    match = PATTERN.match(name)
    if not match:
        return None
    kind, n = match.group(1).lower(), int(match.group(2))
    tail = bytes([n >> 16 & 255, n >> 8 & 255, n & 255])
    if kind == b"many":
        return [bytes([10, 202, i >> 8 & 255, i & 255]) for i in range(n)]
    if kind == b"m":
        return [bytes([10, 200]) + tail[1:], bytes([10, 201]) + tail[1:]]
    return [bytes([10]) + tail]


def reply(packet, limit):
    """The query's name and type and the reply, truncated (TC set, no records) past limit."""
    name, qtype, end = question(packet)
    found = addresses(name)
    answers = found if found is not None and qtype == 1 else []
    rcode = 3 if found is None else 0
    truncated = end + 16 * len(answers) > limit
    if truncated:
        answers = []
    flags = 0x8000 | 0x0400 | truncated << 9 | (struct.unpack("!H", packet[2:4])[0] & 0x0100)
    head = packet[:2] + struct.pack("!HHHHH", flags | 0x0080 | rcode, 1, len(answers), 0, 0)
    body = b"".join(struct.pack("!HHHIH", 0xC00C, 1, 1, 60, 4) + a for a in answers)
    return name, qtype, head + packet[12:end] + body


def answer_tcp(connection, log):
    """Answers the queries of one TCP connection (each behind a two-byte length) at once."""
    connection.settimeout(5)
    try:
        while True:
            size = connection.recv(2, socket.MSG_WAITALL)
            if len(size) < 2:
                return
            packet = connection.recv(struct.unpack("!H", size)[0], socket.MSG_WAITALL)
            name, qtype, answer = reply(packet, 65535)
            log.write("%s %d tcp\n" % (name.decode("ascii", "replace"), qtype))
            connection.sendall(struct.pack("!H", len(answer)) + answer)
    except (OSError, IndexError, struct.error):
        return
    finally:
        connection.close()


def main():
    delay = float(sys.argv[1]) / 1000
    log = open(sys.argv[2], "a", buffering=1)
    sock = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    sock.bind(("127.0.0.1", 53))
    stream = socket.socket(socket.AF_INET, socket.SOCK_STREAM)
    stream.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
    stream.bind(("127.0.0.1", 53))
    stream.listen(16)
    open(sys.argv[3], "w").close()
    pending = []  # (due time, sequence, reply, address)
    sequence = 0
    while True:
        wait = max(0.0, pending[0][0] - time.monotonic()) if pending else None
        readable, _, _ = select.select([sock, stream], [], [], wait)
        if stream in readable:
            answer_tcp(stream.accept()[0], log)
        if sock in readable:
            packet, address = sock.recvfrom(4096)
            try:
                name, qtype, answer = reply(packet, 512)
            except (IndexError, struct.error):
                continue
            if name.lower() != b"localhost":
                log.write("%s %d\n" % (name.decode("ascii", "replace"), qtype))
            sequence += 1
            heapq.heappush(pending, (time.monotonic() + delay, sequence, answer, address))
        while pending and pending[0][0] <= time.monotonic():
            _, _, answer, address = heapq.heappop(pending)
            sock.sendto(answer, address)


if __name__ == "__main__":
    main()
