;; Load from your init file; then "M-x tly": notices are links in the compilation buffer.
(require 'compile)
(add-to-list 'compilation-error-regexp-alist-alist
             '(tly "^\\(.+\\)(\\([0-9]+\\)) : Notice #[0-9]+ *- " 1 2 nil 1))
(add-to-list 'compilation-error-regexp-alist 'tly)
(defun tly ()
  "Measure the sources below the current directory."
  (interactive)
  (compile "tly -xMODERN -i -Nv -Tn \"-rc,h,cc,cpp,cxx,hh,hxx,hpp,java,cs .\""))
