"""The exceptions of the package."""


class DataSourceError(Exception):
    """A failure of the library. message is the text the library meant for
    its user (such as "File contains no channel data."), or None when it
    reported none: most refusals of the library come without a reason."""

    def __init__(self, what, message=None):
        super().__init__(what if message is None else "%s: %s" % (what, message))
        self.what = what
        self.message = message


class OpenError(DataSourceError):
    """A file that does not open."""


class ReadError(DataSourceError):
    """A read that the library refused: a file of another kind, an index
    out of range, a closed file."""
