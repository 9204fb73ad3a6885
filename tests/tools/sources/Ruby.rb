# a greeter
class Greeter
  attr_reader :name
  def initialize(name)
    @name = name
  end
  def greet
    puts "Hello #{@name}" unless @name.nil?
  end
end
[1, 2].each do |n| puts n end
