// counts words
const text = "one two";
function count(value) {
    let words = value.split(' ');
    return words.length === 2 ? 1 : 0;
}
document.title = `${count(text)}`;
console.log(() => 42);
