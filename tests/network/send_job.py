#!/usr/bin/env python3
"""Sends what it reads to a printer's port for jobs, as the system's port monitor does.

usage: send_job.py HOST
HOST is an address, or a name that the host announces by multicast DNS; avahi must run.
"""
import shutil
import socket
import sys

import asking
import daemons


def address_of(host):
    if not host.lower().endswith(".local"):
        return host
    return asking.run("avahi-resolve-host-name", host).split()[-1]


with socket.create_connection((address_of(sys.argv[1]), daemons.RAW_PORT)) as connection, connection.makefile("wb") as target:
    shutil.copyfileobj(sys.stdin.buffer, target)
