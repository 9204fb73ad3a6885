# means by group
values <- c(1, 2, 3.5)
average <- function(x, ...) {
    if (length(x) == 0) return(NA)
    mean(x, na.rm = TRUE)
}
library(stats)
print("done")
