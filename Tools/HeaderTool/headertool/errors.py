"""The one error type of the header tool: a message tied to a place in a header."""


class HeaderError(Exception):
    def __init__(self, file_name, line, message):
        super().__init__(message)
        self.file_name = file_name
        self.line = line
        self.message = message

    def __str__(self):
        # The compiler's own form, so that editors and CI jump to the line.
        return "%s:%d: error: %s" % (self.file_name, self.line, self.message)
