#!/usr/bin/env python3
"""killed_transfer_test.py KEDRIN-MODULE: a transfer ends with the process that waits for it, however that ends."""

import socket
import subprocess
import sys

server = socket.create_server(("127.0.0.1", 0))
server.settimeout(60)
address = f"http://127.0.0.1:{server.getsockname()[1]}"
tool = subprocess.Popen([sys.argv[1], "get", "--list", "--repository", address, "--yes"])
connection, _ = server.accept()
connection.settimeout(20)
request = connection.recv(4096)
assert request.startswith(b"GET /mods.d.tar.gz"), request
tool.kill()
tool.wait()
try:
    rest = connection.recv(1)  # fails after 20 seconds if the transfer goes on
except ConnectionResetError:
    rest = b""
assert rest == b"", rest
