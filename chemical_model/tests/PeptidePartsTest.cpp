// Tests follow with the sources that they test.
