% squares of a vector
function y = squares(x)
    y = zeros(size(x));
    for k = 1:numel(x)
        y(k) = x(k)^2;
    end
    disp('done');
end
