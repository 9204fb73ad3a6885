<?php
// greets
function greet($name) {
    $text = "Hello " . $name;
    echo strtoupper($text), 42;
    return $this->done;
}
?>
