on
