"""What GLib has to tell, while somebody waits for it."""

from gi.repository import GLib
from starts import PATIENCE, wait_for


def settle():
    """Until nothing more has come."""
    while GLib.MainContext.default().iteration(False):
        pass


def wait_and_settle(is_so, patience=PATIENCE):
    """Whether it came to be so."""
    return wait_for(lambda: settle() or is_so(), patience)
