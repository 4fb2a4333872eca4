# Packages land here.
