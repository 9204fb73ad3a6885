#!/usr/bin/perl
use strict;
my %count = (a => 1);
# prints all
foreach my $key (sort keys %count) {
    print "$key: $count{$key}\n" if $key =~ /a/;
}
sub twice { return 2 * shift; }
